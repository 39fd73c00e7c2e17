#pragma once

#include "Platform/Foundation/Dates/DayReader.h"
#include "Platform/Foundation/Dates/LengthReader.h"

namespace mintaro {

/// Puts days, times, ranges and lengths together to whole phrases. For one text and one call: it keeps references.
class PhraseReader
{
public:
    PhraseReader(const DateText &text, const DateOrigin &origin)
        : m_text(text)
        , m_origin(origin)
        , m_days(text, origin)
    {
    }

    /// The longest phrase that begins at that token; one that is a part of a title says so.
    [[nodiscard]] std::optional<DatePhrase> read(int at);

private:
    /// A day, a time, or both, with the range that either may be.
    struct Part
    {
        DateMoment moment {};
        std::optional<WrittenTime> timeEnd {};
        std::optional<std::chrono::local_days> lastDay {};
        int next = 0;

        [[nodiscard]] bool isRange() const { return timeEnd || lastDay; }
    };

    [[nodiscard]] bool isInTitle(int at, const DatePhrase &phrase) const;
    [[nodiscard]] std::optional<DatePhrase> readBeforeOrAfter(const LengthRead &read);
    [[nodiscard]] std::optional<DatePhrase> readMoments(int at);
    [[nodiscard]] std::optional<Part> readPart(int at, std::chrono::local_days anchor);
    [[nodiscard]] std::optional<Part> readDay(int at, std::chrono::local_days anchor);
    void addTime(Part &part) const;
    void addIsoTime(Part &part) const;
    void addYear(Part &part) const;
    void addDay(Part &part);
    void addEnd(DatePhrase &phrase, Part &part, bool isBetween);
    void addLength(DatePhrase &phrase) const;
    [[nodiscard]] int skipGlue(int at) const;

    const DateText &m_text;
    const DateOrigin &m_origin;
    DayReader m_days;
    bool m_isBetween = false;
    bool m_isEnd = false;
};

} // namespace mintaro
