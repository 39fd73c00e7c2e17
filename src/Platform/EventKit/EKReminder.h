#pragma once

#include "Platform/EventKit/EKCalendar.h"
#include "Platform/Foundation/Calendar.h"

#include <QString>

#include <memory>
#include <optional>

namespace mintaro {

struct ReminderRecord;

/// The DUE of a reminder: a day, or a day and a clock reading, in a zone or floating.
struct EKDueDateComponents
{
    DateComponents components;
    /// False for a DUE of the form DATE; the reading is midnight then.
    bool hasTime = false;
    /// Empty for a floating reading, which means the user's zone.
    std::optional<TimeZone> timeZone;

    /// The moment; floating readings in the zone of `calendar`.
    [[nodiscard]] std::optional<Date> date(const Calendar &calendar) const;
};

/// A VTODO: a cheap handle on a shared, immutable item of the store, with the changes that were made through it and not
/// saved yet. Handles may be copied, and each be read on any thread.
class EKReminder
{
public:
    /// `identifierSuffix` tells it from an item of the same UID in the same list; mostly empty.
    EKReminder(std::shared_ptr<const ReminderRecord> record, EKCalendarRef calendar, QString identifierSuffix);

    /// Stable across restarts.
    [[nodiscard]] QString calendarItemIdentifier() const;
    [[nodiscard]] QString title() const;
    [[nodiscard]] std::optional<QString> notes() const;
    [[nodiscard]] std::optional<QString> url() const;
    [[nodiscard]] std::optional<EKDueDateComponents> dueDateComponents() const;
    /// STATUS:COMPLETED, a COMPLETED moment, or 100 percent (RFC 5545 3.8.1.11, 3.8.2.1, 3.8.1.8).
    [[nodiscard]] bool isCompleted() const { return m_isCompleted; }
    [[nodiscard]] std::optional<Date> completionDate() const { return m_completionDate; }
    /// Nothing is written before the store saves the reminder.
    void setCompleted(bool isCompleted) { m_isCompleted = isCompleted; }
    void setCompletionDate(std::optional<Date> date) { m_completionDate = date; }
    [[nodiscard]] bool hasChanges() const
    {
        return m_isCompleted != storedCompleted() || m_completionDate != storedCompletionDate();
    }
    /// Two handles share it exactly when they show the same revision of the same item.
    [[nodiscard]] const std::shared_ptr<const ReminderRecord> &record() const { return m_record; }
    [[nodiscard]] const EKCalendarRef &calendar() const { return m_calendar; }
    [[nodiscard]] const QString &identifierSuffix() const { return m_identifierSuffix; }

private:
    [[nodiscard]] bool storedCompleted() const;
    [[nodiscard]] std::optional<Date> storedCompletionDate() const;

    std::shared_ptr<const ReminderRecord> m_record;
    EKCalendarRef m_calendar;
    QString m_identifierSuffix;
    bool m_isCompleted;
    std::optional<Date> m_completionDate;
};

} // namespace mintaro
