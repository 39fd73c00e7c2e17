#pragma once

#include "Platform/Foundation/Dates/DatePhrase.h"
#include "Platform/Foundation/Dates/DateText.h"

namespace mintaro {

struct LengthRead
{
    DateLength length;
    int next;
};

/// A length of time, as "2 hours", "1h30", "un'ora e mezza".
[[nodiscard]] std::optional<LengthRead> readLength(const DateText &text, int at);

struct NumberRead
{
    int value;
    int next;
    bool isDigits;
};

/// A whole number in digits or words; "a" and its like count where `takesArticles`.
[[nodiscard]] std::optional<NumberRead> readNumber(const DateText &text, int at, bool takesArticles);

/// What stands there is counted or named by the number, or the ordinal, before it.
[[nodiscard]] bool isCounted(const DateText &text, int at, bool isOrdinal = false);

} // namespace mintaro
