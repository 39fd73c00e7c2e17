#pragma once

#include "Platform/EventKit/EventTime.h"
#include "Platform/Foundation/Date.h"

#include <QString>

#include <optional>

namespace mintaro {

/// One VTODO as the store keeps it. Made by the reader, constant from then on. A null text is an absent property.
struct ReminderRecord
{
    QString uid;
    QString title;
    QString notes;
    QString url;
    std::optional<EventTime> due;
    std::optional<Date> completionDate;
    bool isCompleted = false;
    /// As EventItem::isDamaged.
    bool isDamaged = false;
};

} // namespace mintaro
