#pragma once

#include "Platform/EventKit/EKAlarm.h"
#include "Platform/EventKit/EKCalendar.h"
#include "Platform/EventKit/EKParticipant.h"
#include "Platform/EventKit/EKRecurrenceRule.h"
#include "Platform/Foundation/Date.h"

#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace mintaro {

struct EventItem;

/// One occurrence of an event: a cheap handle on a shared, immutable item of the store. Handles may be copied and read
/// on any thread.
class EKEvent
{
public:
    /// An empty event that belongs to no store.
    EKEvent();
    /// One occurrence of `item`, as the store's query gives it. `identifierSuffix` tells it from an item of the same
    /// UID in the same calendar; mostly empty. `start` and `end` as startDate and endDate tell them; `occurrence` is
    /// the start that the rule gives, before an exception moved it.
    EKEvent(std::shared_ptr<const EventItem> item, EKCalendarRef calendar, QString identifierSuffix, Date start,
        Date end, Date occurrence);

    /// Shared by all occurrences of a series, stable across restarts; empty for a detached event.
    [[nodiscard]] QString eventIdentifier() const;
    /// UID of the component (RFC 5545 3.8.4.7).
    [[nodiscard]] QString calendarItemExternalIdentifier() const;
    [[nodiscard]] std::optional<QString> title() const;
    [[nodiscard]] std::optional<QString> location() const;
    [[nodiscard]] bool hasNotes() const { return notes().has_value(); }
    [[nodiscard]] std::optional<QString> notes() const;
    /// The URL property, and where there is none the meeting link that servers put into CONFERENCE (RFC 7986 5.11) or
    /// their own X- properties.
    [[nodiscard]] std::optional<QString> url() const;
    /// Two handles share it exactly when they show the same revision of the same item; what is worked out from an
    /// event's texts can be remembered by it. Null for a detached event.
    [[nodiscard]] const std::shared_ptr<const EventItem> &item() const { return m_item; }
    /// Null for a detached event.
    [[nodiscard]] const EKCalendarRef &calendar() const { return m_calendar; }

    /// For an all-day event the local midnight of its first day.
    [[nodiscard]] Date startDate() const { return m_start; }
    /// For an all-day event 23:59:59 of its last day.
    [[nodiscard]] Date endDate() const { return m_end; }
    [[nodiscard]] Date occurrenceDate() const { return m_occurrence; }
    [[nodiscard]] bool isAllDay() const;

    [[nodiscard]] bool hasAttendees() const { return !attendees().empty(); }
    /// Of this occurrence: an exception may have its own.
    [[nodiscard]] const std::vector<EKParticipant> &attendees() const;
    [[nodiscard]] const std::vector<EKAlarm> &alarms() const;
    /// An exception answers as its series does.
    [[nodiscard]] bool hasRecurrenceRules() const { return !recurrenceRules().empty(); }
    [[nodiscard]] const std::vector<EKRecurrenceRule> &recurrenceRules() const;

private:
    std::shared_ptr<const EventItem> m_item;
    EKCalendarRef m_calendar;
    QString m_identifierSuffix;
    Date m_start {};
    Date m_end {};
    Date m_occurrence {};
};

} // namespace mintaro
