#pragma once

#include "Platform/Foundation/Date.h"
#include "Platform/Foundation/Locale.h"

#include <QString>

#include <optional>
#include <vector>

namespace mintaro {

/// The reading of a clock, to the minute.
struct ClockReading
{
    int hour = 0; ///< 0 to 23
    int minute = 0; ///< 0 to 59

    friend bool operator==(const ClockReading &, const ClockReading &) = default;
};

/// How a locale writes days and clock readings in fields that people type in, and how it takes what they typed. An
/// immutable value, usable from any thread; making one is costly.
class DateEntryFormat
{
public:
    enum class Part { Day, Month, Year, Hour, Minute, DayPeriod };

    /// A place in a text, in UTF-16 units.
    struct Range
    {
        qsizetype start = 0;
        qsizetype end = 0; ///< exclusive

        friend bool operator==(const Range &, const Range &) = default;
    };

    explicit DateEntryFormat(const Locale &locale);

    /// Day and month in two digits each: 11/24/2026, 24.11.2026.
    [[nodiscard]] QString string(std::chrono::year_month_day day) const;
    /// With or without a half of the day, as the locale has it: 15:30, 3:30 PM.
    [[nodiscard]] QString string(ClockReading reading) const;

    /// Numbers in the locale's order, or with a year of four digits first, between blanks or any of . / - and commas.
    /// What is left out, the year or the month besides, is that of `shown`; of two digits, the year is the one
    /// that is nearest to it. Empty for anything else, and for days that do not exist.
    [[nodiscard]] std::optional<std::chrono::year_month_day> day(
        const QString &text, std::chrono::year_month_day shown) const;
    /// 15:30, 15.30, 1530, 15, 3:30 PM, 3pm. Where the locale counts to twelve, 1 to 7 without a half of the day is in
    /// the afternoon, unless it is written with a zero before it. Empty for anything else.
    [[nodiscard]] std::optional<ClockReading> time(const QString &text) const;

    /// The parts of the two texts, as they follow one another.
    [[nodiscard]] const std::vector<Part> &dateParts() const { return m_date.parts; }
    [[nodiscard]] const std::vector<Part> &timeParts() const { return m_time.parts; }
    /// Where parts may stand in a text: its runs of digits and its runs of letters.
    [[nodiscard]] static std::vector<Range> partRanges(QStringView text);

private:
    struct Piece
    {
        std::optional<Part> part;
        int digits = 0; ///< at least, of a number
        QString literal {};
    };
    struct Layout
    {
        std::vector<Piece> pieces;
        std::vector<Part> parts;
        bool isTwelveHour = false;
    };

    [[nodiscard]] static Layout layout(const QString &pattern);

    Layout m_date;
    Layout m_time;
    QString m_am;
    QString m_pm;
};

} // namespace mintaro
