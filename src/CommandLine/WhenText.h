#pragma once

#include "Platform/Foundation/DateFormatter.h"
#include "Platform/Foundation/Environment.h"

namespace mintaro {

/// Says when something is, for people: days in the words of the locale, times on a 24-hour clock.
class WhenText
{
public:
    explicit WhenText(const Environment &environment);

    [[nodiscard]] QString day(Date date) const;
    /// "Tue, 24 Nov 2026 15:00".
    [[nodiscard]] QString moment(Date date) const;
    /// "Tue, 24 Nov 2026 15:00 - 16:00", and of whole days the days alone.
    [[nodiscard]] QString range(Date start, Date end, bool isAllDay) const;

private:
    Calendar m_calendar;
    DateFormatter m_format;
};

} // namespace mintaro
