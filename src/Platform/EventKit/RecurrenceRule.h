#pragma once

#include "Platform/Foundation/Date.h"

#include <QByteArray>
#include <QList>

#include <optional>
#include <vector>

namespace mintaro {

/// An RRULE or EXRULE taken apart (RFC 5545 3.3.10; also one of vCalendar 1.0).
struct RecurrenceRule
{
    enum class Frequency : unsigned char { Secondly, Minutely, Hourly, Daily, Weekly, Monthly, Yearly };

    struct WeekdayNumber
    {
        std::chrono::weekday day;
        /// 0: every such day.
        int ordinal = 0;
    };

    struct Until
    {
        LocalTime reading {};
        bool isUtc = false;
    };

    Frequency frequency = Frequency::Daily;
    int interval = 1;
    std::optional<int> count;
    std::optional<Until> until;
    std::chrono::weekday weekStart = std::chrono::Monday;
    /// The numbers of each part ascend, without doubles.
    std::vector<int> bySecond;
    std::vector<int> byMinute;
    std::vector<int> byHour;
    std::vector<WeekdayNumber> byDay;
    std::vector<int> byMonthDay;
    std::vector<int> byYearDay;
    std::vector<int> byWeekNumber;
    std::vector<int> byMonth;
    std::vector<int> bySetPosition;

    /// Empty where a part is missing, malformed or out of range. Parts that the RFC does not name are passed over.
    [[nodiscard]] static std::optional<RecurrenceRule> parse(const QByteArray &value);
};

} // namespace mintaro
