#pragma once

#include "Platform/EventKit/EKAlarm.h"
#include "Platform/EventKit/EKCalendar.h"
#include "Platform/EventKit/EKParticipant.h"
#include "Platform/EventKit/EKRecurrenceRule.h"
#include "Platform/EventKit/EventChanges.h"
#include "Platform/Foundation/Date.h"

#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace mintaro {

struct EventItem;

/// When one occurrence is.
struct EventOccurrence
{
    /// As EKEvent tells them.
    Date start {};
    Date end {};
    /// The start that the rule gives, before an exception moved it.
    Date occurrence {};
    /// The same as its series counts it: see SeriesClock.
    std::int64_t original = 0;
    bool originalIsZoned = false;
};

/// One occurrence of an event: a cheap handle on a shared, immutable item of the store, with the changes that were made
/// through it and not saved yet. Handles may be copied, and each be read on any thread.
class EKEvent
{
public:
    /// An empty event that belongs to no store yet.
    EKEvent();
    /// One occurrence of `item`, as the store's query gives it. `identifierSuffix` tells it from an item of the same
    /// UID in the same calendar; mostly empty.
    EKEvent(std::shared_ptr<const EventItem> item, EKCalendarRef calendar, QString identifierSuffix,
        const EventOccurrence &occurrence);

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
    /// Null for a detached event that was given none.
    [[nodiscard]] const EKCalendarRef &calendar() const
    {
        return m_changes && m_changes->calendar ? m_changes->calendar : m_calendar;
    }

    /// For an all-day event the local midnight of its first day.
    [[nodiscard]] Date startDate() const { return changed(&EventChanges::start, m_occurrence.start); }
    /// For an all-day event 23:59:59 of its last day.
    [[nodiscard]] Date endDate() const { return changed(&EventChanges::end, m_occurrence.end); }
    [[nodiscard]] Date occurrenceDate() const { return m_occurrence.occurrence; }
    [[nodiscard]] bool isAllDay() const;

    [[nodiscard]] bool hasAttendees() const { return !attendees().empty(); }
    /// Of this occurrence: an exception may have its own.
    [[nodiscard]] const std::vector<EKParticipant> &attendees() const;
    [[nodiscard]] const std::vector<EKAlarm> &alarms() const;
    /// An exception answers as its series does.
    [[nodiscard]] bool hasRecurrenceRules() const { return !recurrenceRules().empty(); }
    [[nodiscard]] const std::vector<EKRecurrenceRule> &recurrenceRules() const;

    /// What is set to the value that it has is no change. Nothing is written before the store saves the event.
    void setTitle(const std::optional<QString> &title);
    void setLocation(const std::optional<QString> &location);
    void setNotes(const std::optional<QString> &notes);
    void setStartDate(Date start);
    /// Of an all-day event any moment of its last day.
    void setEndDate(Date end);
    void setAllDay(bool isAllDay);
    void setRecurrenceRules(const std::vector<EKRecurrenceRule> &rules);
    /// All of them; others, those that cannot be shown too, are gone when the event is saved.
    void setAlarms(const std::vector<EKAlarm> &alarms);
    void setCalendar(const EKCalendarRef &calendar);
    /// Null where nothing is to be saved.
    [[nodiscard]] const std::shared_ptr<const EventChanges> &changes() const { return m_changes; }
    /// The occurrence as the store has it.
    [[nodiscard]] const EventOccurrence &occurrence() const { return m_occurrence; }
    /// Null for a detached event.
    [[nodiscard]] const EKCalendarRef &storedCalendar() const { return m_calendar; }
    [[nodiscard]] const QString &identifierSuffix() const { return m_identifierSuffix; }

private:
    template <typename Value>
    [[nodiscard]] const Value &changed(std::optional<Value> EventChanges::*field, const Value &stored) const
    {
        return m_changes && (*m_changes).*field ? *((*m_changes).*field) : stored;
    }
    template <typename Edit>
    void edit(const Edit &edit);
    template <typename Value>
    void change(std::optional<Value> EventChanges::*field, const Value &value, const Value &stored);

    std::shared_ptr<const EventItem> m_item;
    EKCalendarRef m_calendar;
    QString m_identifierSuffix;
    EventOccurrence m_occurrence;
    std::shared_ptr<const EventChanges> m_changes;
};

} // namespace mintaro
