#include "App/AppState.h"

#include <QPointer>

namespace mintaro {

QCoro::Task<> AppState::fetchReminders()
{
    return m_remindersVM.fetchReminders(selection(QStringLiteral("SelectedReminderLists")));
}

QCoro::Task<> AppState::toggleReminder(QString id)
{
    const QPointer<AppState> self(this);
    co_await m_reminderService.toggleCompletion(std::move(id));
    if (self)
        co_await fetchReminders();
}

QCoro::Task<> AppState::deleteReminder(QString id)
{
    const QPointer<AppState> self(this);
    co_await m_reminderService.deleteReminder(std::move(id));
    if (self)
        co_await fetchReminders();
}

} // namespace mintaro
