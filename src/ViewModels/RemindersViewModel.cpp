#include "ViewModels/RemindersViewModel.h"

#include <QPointer>

namespace mintaro {

RemindersViewModel::RemindersViewModel(ReminderService &reminderService, const Environment &environment)
    : m_reminderService(reminderService)
    , m_environment(environment)
{
}

QCoro::Task<> RemindersViewModel::fetchReminders(QSet<QString> selectedListIDs)
{
    const QPointer<RemindersViewModel> self(this);
    setLoading(true);
    std::optional<std::vector<EKCalendarRef>> lists;
    if (!selectedListIDs.isEmpty()) {
        // A selection of lists that are all gone shows no reminders, not all of them.
        lists = co_await m_reminderService.reminderLists();
        if (!self)
            co_return;
        std::erase_if(*lists, [&](const auto &list) { return !selectedListIDs.contains(list->calendarIdentifier); });
    }
    auto reminders = co_await m_reminderService.fetchReminders(std::move(lists), m_environment.calendar());
    if (!self)
        co_return;
    if (reminders != m_reminders) {
        m_reminders = std::move(reminders);
        Q_EMIT remindersChanged();
    }
    setLoading(false);
}

void RemindersViewModel::setLoading(bool isLoading)
{
    if (std::exchange(m_isLoading, isLoading) != isLoading)
        Q_EMIT isLoadingChanged();
}

} // namespace mintaro
