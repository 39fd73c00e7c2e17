#pragma once

#include "Platform/EventKit/EKCalendar.h"
#include "Platform/EventKit/EKEvent.h"
#include "Platform/EventKit/EKReminder.h"
#include "Platform/EventKit/EKSpan.h"

#include <memory>
#include <optional>
#include <vector>

namespace mintaro {

class CalendarDatabase;

/// Posted on the notification centre when what queries answer may have changed: once for a burst of changes.
inline constexpr char kEKEventStoreChangedNotification[] = "EKEventStoreChangedNotification";

/// Which events a query is for: all occurrences that overlap [start, end) as RFC 4791 9.9 defines overlapping.
struct EKEventPredicate
{
    Date start;
    Date end;
    /// Identifiers; absent: every calendar, empty: none.
    std::optional<std::vector<QString>> calendarIdentifiers {};
    /// Only events whose title, location or notes contain it, whatever the case by the rules of the user's language.
    std::optional<QString> text {};
};

struct EKReminderPredicate
{
    /// Identifiers; absent: every list, empty: none.
    std::optional<std::vector<QString>> calendarIdentifiers;
};

/// A connection to the process's one calendar database. Making one costs nothing and tells nobody. All calls read files
/// where something changed, so they belong on an actor's thread; they are safe from several threads at once.
class EKEventStore
{
public:
    explicit EKEventStore(std::shared_ptr<CalendarDatabase> database);

    /// False where the user's data cannot be read; throws EKError where the store's configuration makes no sense.
    [[nodiscard]] bool requestFullAccessToEvents();
    [[nodiscard]] bool requestFullAccessToReminders();

    [[nodiscard]] std::vector<EKCalendarRef> calendarsForEntityType(EKEntityType type);
    /// Null when there is none.
    [[nodiscard]] EKCalendarRef calendarWithIdentifier(const QString &identifier);

    /// `calendars`: absent for every one. `text`: as the predicate tells it.
    [[nodiscard]] static EKEventPredicate predicateForEvents(Date start, Date end,
        const std::optional<std::vector<EKCalendarRef>> &calendars, std::optional<QString> text = std::nullopt);
    /// Occurrences in ascending order of their starts; those of equal starts in the order of calendars and objects.
    /// Nothing before access was granted.
    [[nodiscard]] std::vector<EKEvent> eventsMatchingPredicate(const EKEventPredicate &predicate);

    /// Where events come that nobody chose a calendar for; null where none can be changed.
    [[nodiscard]] EKCalendarRef defaultCalendarForNewEvents();
    /// The occurrence that begins at `start` (all occurrences of a series share the identifier), or without it the
    /// first one; of an event that happens once, that one. Empty where there is none by now.
    [[nodiscard]] std::optional<EKEvent> eventWithIdentifier(
        const QString &identifier, const std::optional<Date> &start = std::nullopt);
    /// Writes the changes that were made through the handle to the event as it is now: what other programs changed
    /// besides stays. An event that was moved to another calendar leaves its own as far as `span` reaches. What comes
    /// back is the event as it is then. Throws EKError, with a text for people; then nothing was changed.
    [[nodiscard]] EKEvent save(const EKEvent &event, EKSpan span);
    /// Throws EKError, as `save` does.
    void remove(const EKEvent &event, EKSpan span);

    [[nodiscard]] static EKReminderPredicate predicateForReminders(
        const std::optional<std::vector<EKCalendarRef>> &calendars);
    [[nodiscard]] std::vector<EKReminder> fetchRemindersMatchingPredicate(const EKReminderPredicate &predicate);
    /// As for events.
    void save(const EKReminder &reminder);
    void remove(const EKReminder &reminder);

private:
    std::shared_ptr<CalendarDatabase> m_database;
};

} // namespace mintaro
