#pragma once

#include "Platform/Foundation/Calendar.h"

#include <QString>

#include <vector>

namespace mintaro {

/// Finds dates in free text, in English and in Italian: moments, days, and spans of either. Linear in the text's
/// length. A constant object may be used from several threads at once.
class DateDetector
{
public:
    struct Match
    {
        qsizetype location = 0; ///< UTF-16 offset of the matched text
        qsizetype length = 0; ///< in UTF-16 units
        Date date {}; ///< a day without a time is at its noon
        std::chrono::seconds duration { 0 }; ///< 0 where the text gives no span
    };

    /// The locale's language is tried first; its region says whether 3/12 is in March or in December.
    explicit DateDetector(const Locale &locale);

    /// All dates in order of occurrence, none overlapping another. Relative ones count from `now`; days and readings
    /// are those of the calendar's zone.
    [[nodiscard]] std::vector<Match> matches(const QString &text, Date now, const Calendar &calendar) const;
    [[nodiscard]] std::optional<Match> firstMatch(const QString &text, Date now, const Calendar &calendar) const;

private:
    [[nodiscard]] std::vector<Match> found(
        const QString &text, Date now, const Calendar &calendar, qsizetype most) const;

    bool m_isItalian;
    bool m_isMonthFirst;
};

} // namespace mintaro
