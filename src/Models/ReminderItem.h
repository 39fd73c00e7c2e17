#pragma once

#include "Platform/Foundation/Color.h"
#include "Platform/Foundation/Date.h"
#include "Platform/Foundation/URL.h"

#include <optional>

namespace mintaro {

/// A reminder as the agenda needs it.
struct ReminderItem
{
    /// The store's calendarItemIdentifier.
    QString id;
    QString title;
    std::optional<Date> dueDate;
    bool isCompleted = false;
    Color listColor;
    std::optional<URL> url;

    friend bool operator==(const ReminderItem &, const ReminderItem &) = default;
};

} // namespace mintaro
