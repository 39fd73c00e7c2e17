#pragma once

#include "Platform/Foundation/Date.h"

#include <QString>

#include <optional>

namespace mintaro {

/// A provisional event: what a line of free text says.
struct ParsedEvent
{
    /// What is left of the line after date and location are cut; the whole line where nothing is.
    QString title {};
    /// Both absent where the line holds no date.
    std::optional<Date> startDate {};
    std::optional<Date> endDate {};
    std::optional<QString> location {};
    bool isAllDay = false;

    friend bool operator==(const ParsedEvent &, const ParsedEvent &) = default;
};

} // namespace mintaro
