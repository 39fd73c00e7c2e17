#pragma once

#include "Platform/EventKit/EKAlarm.h"
#include "Platform/EventKit/EKParticipant.h"
#include "Platform/EventKit/EKRecurrenceRule.h"
#include "Platform/EventKit/EventTime.h"

#include <QString>

#include <vector>

namespace mintaro {

/// One VEVENT as the store keeps it, without libical. Made by the reader, constant from then on. A null text is an
/// absent property.
struct EventItem
{
    QString uid;
    /// What tells this item's object from an earlier one of the same UID in its collection; mostly empty.
    QString identifierSuffix;
    QString title;
    QString location;
    QString notes;
    QString url;
    EventTime start;
    EventLength length;
    std::vector<EKParticipant> attendees;
    std::vector<EKAlarm> alarms;
    /// Those of the series, also for its exceptions.
    std::vector<EKRecurrenceRule> recurrenceRules;
    bool isCancelled = false;
    /// The parser could not read all of it: writing it back would lose something.
    bool isDamaged = false;

    [[nodiscard]] bool isAllDay() const { return start.form == TimeForm::Day; }
};

} // namespace mintaro
