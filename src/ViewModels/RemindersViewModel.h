#pragma once

#include "Models/ReminderItem.h"
#include "Platform/Foundation/Environment.h"
#include "Services/ReminderService.h"

#include <QObject>
#include <QSet>

namespace mintaro {

/// The reminders of the selected lists, as the store last gave them. For the main thread.
class RemindersViewModel : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool isLoading READ isLoading NOTIFY isLoadingChanged)

public:
    /// Both must outlive the object.
    RemindersViewModel(ReminderService &reminderService, const Environment &environment);

    /// In the store's order, done ones and those without a date included.
    [[nodiscard]] const std::vector<ReminderItem> &reminders() const { return m_reminders; }
    [[nodiscard]] bool isLoading() const { return m_isLoading; }

    /// An empty selection means every list.
    [[nodiscard]] QCoro::Task<> fetchReminders(QSet<QString> selectedListIDs);

Q_SIGNALS:
    void remindersChanged();
    void isLoadingChanged();

private:
    void setLoading(bool isLoading);

    ReminderService &m_reminderService;
    const Environment &m_environment;
    std::vector<ReminderItem> m_reminders;
    bool m_isLoading = false;
};

} // namespace mintaro
