#include "Platform/EventKit/EKEventStore.h"

#include "Platform/EventKit/CalendarDatabase.h"

#include <algorithm>

namespace mintaro {

namespace {

std::optional<std::vector<QString>> identifiersOf(const std::optional<std::vector<EKCalendarRef>> &calendars)
{
    if (!calendars)
        return std::nullopt;
    std::vector<QString> identifiers;
    for (const EKCalendarRef &calendar : *calendars)
        identifiers.push_back(calendar->calendarIdentifier);
    return identifiers;
}

} // namespace

EKEventStore::EKEventStore(std::shared_ptr<CalendarDatabase> database)
    : m_database(std::move(database))
{
}

bool EKEventStore::requestFullAccessToEvents()
{
    return m_database->requestAccess();
}

bool EKEventStore::requestFullAccessToReminders()
{
    return m_database->requestAccess();
}

std::vector<EKCalendarRef> EKEventStore::calendarsForEntityType(EKEntityType type)
{
    auto calendars = m_database->calendars();
    std::erase_if(calendars, [type](const EKCalendarRef &calendar) {
        return !(type == EKEntityType::Event ? calendar->allowsEvents : calendar->allowsReminders);
    });
    return calendars;
}

EKCalendarRef EKEventStore::calendarWithIdentifier(const QString &identifier)
{
    const auto calendars = m_database->calendars();
    const auto found = std::find_if(calendars.begin(), calendars.end(),
        [&identifier](const EKCalendarRef &calendar) { return calendar->calendarIdentifier == identifier; });
    return found == calendars.end() ? nullptr : *found;
}

EKEventPredicate EKEventStore::predicateForEvents(
    Date start, Date end, const std::optional<std::vector<EKCalendarRef>> &calendars, std::optional<QString> text)
{
    return { start, end, identifiersOf(calendars), std::move(text) };
}

std::vector<EKEvent> EKEventStore::eventsMatchingPredicate(const EKEventPredicate &predicate)
{
    return m_database->events(predicate);
}

EKCalendarRef EKEventStore::defaultCalendarForNewEvents()
{
    return m_database->defaultCalendarForNewEvents();
}

std::optional<EKEvent> EKEventStore::eventWithIdentifier(const QString &identifier, const std::optional<Date> &start)
{
    return m_database->eventWithIdentifier(identifier, start);
}

EKEvent EKEventStore::save(const EKEvent &event, EKSpan span)
{
    return m_database->save(event, span);
}

void EKEventStore::remove(const EKEvent &event, EKSpan span)
{
    m_database->remove(event, span);
}

EKReminderPredicate EKEventStore::predicateForReminders(const std::optional<std::vector<EKCalendarRef>> &calendars)
{
    return { identifiersOf(calendars) };
}

std::vector<EKReminder> EKEventStore::fetchRemindersMatchingPredicate(const EKReminderPredicate &predicate)
{
    return m_database->reminders(predicate);
}

void EKEventStore::save(const EKReminder &reminder)
{
    m_database->save(reminder);
}

void EKEventStore::remove(const EKReminder &reminder)
{
    m_database->remove(reminder);
}

} // namespace mintaro
