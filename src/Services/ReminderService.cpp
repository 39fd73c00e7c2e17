#include "Services/ReminderService.h"

namespace mintaro {

ReminderService::ReminderService(EKEventStore store)
    : m_store(std::move(store))
    , m_actor(QStringLiteral("Reminders"))
{
}

QCoro::Task<bool> ReminderService::requestAccess()
{
    return m_actor.perform([this] { return m_store.requestFullAccessToReminders(); });
}

QCoro::Task<std::vector<EKCalendarRef>> ReminderService::reminderLists()
{
    return m_actor.perform([this] { return m_store.calendarsForEntityType(EKEntityType::Reminder); });
}

QCoro::Task<std::vector<FetchedReminder>> ReminderService::fetchReminders(
    std::optional<std::vector<EKCalendarRef>> lists)
{
    return m_actor.perform([this, predicate = EKEventStore::predicateForReminders(lists)] { return fetch(predicate); });
}

std::vector<FetchedReminder> ReminderService::fetch(const EKReminderPredicate &predicate)
{
    std::vector<FetchedReminder> fetched;
    for (EKReminder &reminder : m_store.fetchRemindersMatchingPredicate(predicate)) {
        const auto &url = m_links.value(reminder.record(), [&] { return link(reminder); });
        fetched.push_back({ std::move(reminder), url });
    }
    m_links.prune();
    return fetched;
}

std::optional<URL> ReminderService::link(const EKReminder &reminder) const
{
    if (const auto url = reminder.url())
        return URL::fromString(*url);
    const QString notes = reminder.notes().value_or(QString());
    const auto match = m_linkDetector.firstMatch(notes);
    return match ? URL::fromString(notes.mid(match->location, match->length)) : std::nullopt;
}

} // namespace mintaro
