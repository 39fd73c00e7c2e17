#pragma once

#include "Platform/EventKit/EKAlarm.h"
#include "Platform/EventKit/EKParticipant.h"
#include "Platform/EventKit/EKRecurrenceRule.h"

#include <QString>

#include <vector>

namespace mintaro {

/// What one VEVENT says; when it happens stands in its series. Made by the reader, constant from then
/// on. A null text is an absent property.
struct EventItem
{
    QString uid;
    QString title;
    QString location;
    QString notes;
    QString url;
    std::vector<EKParticipant> attendees;
    std::vector<EKAlarm> alarms;
    /// Those of the series, also for its exceptions.
    std::vector<EKRecurrenceRule> recurrenceRules;
    bool isAllDay = false;
    /// The parser could not read all of it: writing it back would lose something.
    bool isDamaged = false;

    friend bool operator==(const EventItem &, const EventItem &) = default;
};

} // namespace mintaro
