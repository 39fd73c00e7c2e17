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

/// A VTODO: a cheap handle on a shared, immutable item of the store. Handles may be copied and read on any thread.
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
    [[nodiscard]] bool isCompleted() const;
    [[nodiscard]] std::optional<Date> completionDate() const;
    /// Two handles share it exactly when they show the same revision of the same item.
    [[nodiscard]] const std::shared_ptr<const ReminderRecord> &record() const { return m_record; }
    [[nodiscard]] const EKCalendarRef &calendar() const { return m_calendar; }

private:
    std::shared_ptr<const ReminderRecord> m_record;
    EKCalendarRef m_calendar;
    QString m_identifierSuffix;
};

} // namespace mintaro
