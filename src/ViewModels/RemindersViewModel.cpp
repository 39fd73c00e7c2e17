#include "ViewModels/RemindersViewModel.h"

#include <QPointer>

namespace mintaro {

namespace {

ReminderItem toItem(const FetchedReminder &fetched, const Calendar &calendar)
{
    const EKReminder &reminder = fetched.reminder;
    const auto due = reminder.dueDateComponents();
    return { .id = reminder.calendarItemIdentifier(),
        .title = reminder.title(),
        .dueDate = due ? due->date(calendar) : std::nullopt,
        .isCompleted = reminder.isCompleted(),
        .listColor = reminder.calendar()->cgColor,
        .url = fetched.url };
}

} // namespace

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
    const auto fetched = co_await m_reminderService.fetchReminders(std::move(lists));
    if (!self)
        co_return;
    const Calendar calendar = m_environment.calendar();
    std::vector<ReminderItem> reminders;
    reminders.reserve(fetched.size());
    for (const FetchedReminder &each : fetched)
        reminders.push_back(toItem(each, calendar));
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
