#include "Platform/Foundation/Dates/LengthReader.h"

#include <cmath>

namespace mintaro {

using namespace std::chrono;

namespace {

constexpr int kMost = 9999;

void add(DateLength &length, DateUnit unit, int count)
{
    switch (unit) {
    case DateUnit::Second:
        length.exact += seconds { count };
        break;
    case DateUnit::Minute:
        length.exact += minutes { count };
        break;
    case DateUnit::Hour:
        length.exact += hours { count };
        break;
    case DateUnit::Day:
        length.days += days { count };
        break;
    case DateUnit::Week:
        length.days += weeks { count };
        break;
    case DateUnit::Fortnight:
        length.days += 2 * weeks { count };
        break;
    case DateUnit::Month:
        length.months += months { count };
        break;
    case DateUnit::Year:
        length.months += years { count };
        break;
    }
}

/// "and a half", of what can be halved.
void addHalf(DateLength &length, DateUnit unit)
{
    if (unit == DateUnit::Hour)
        length.exact += minutes { 30 };
    else if (unit == DateUnit::Minute)
        length.exact += seconds { 30 };
    else if (unit == DateUnit::Day)
        length.exact += hours { 12 };
    else if (unit == DateUnit::Year)
        length.months += months { 6 };
}

/// The unit behind a number: single letters must touch their digits.
const DateText::Sense *unitAt(const DateText &text, int at)
{
    const auto *unit = text.sense(at, WordKind::Unit);
    return unit && unit->has(Ambiguous) && !(text.isGlued(at) && text.isNumber(at - 1)) ? nullptr : unit;
}

/// The tenths behind a number, as in "1.5 hours" and "1,5 ore"; 0 where there are none.
int tenthsAt(const DateText &text, int at)
{
    const bool hasTenths = (text.isGluedMark(at, u'.') || text.isGluedMark(at, u',')) && text.isGluedNumber(at + 1)
        && text[at + 1].length == 1;
    return hasTenths ? text[at + 1].value : 0;
}

struct Piece
{
    DateLength length;
    DateUnit unit;
    int next;
};

std::optional<Piece> readPiece(const DateText &text, int at)
{
    const auto number = readNumber(text, at, true);
    if (!number || number->value > kMost)
        return std::nullopt;
    int next = number->next;
    const int tenths = number->isDigits ? tenthsAt(text, next) : 0;
    if (tenths > 0)
        next += 2;
    const auto *half = text.sense(next, WordKind::AndHalf);
    const bool isHalfBefore = half && unitAt(text, next + half->count);
    if (isHalfBefore)
        next += half->count;
    const auto *unit = unitAt(text, next);
    if (!unit)
        return std::nullopt;
    next += unit->count;
    Piece piece { {}, static_cast<DateUnit>(unit->value), next };
    add(piece.length, piece.unit, number->value);
    const auto *halfBehind = isHalfBefore ? nullptr : text.sense(next, WordKind::AndHalf);
    if (halfBehind)
        piece.next += halfBehind->count;
    if (isHalfBefore || halfBehind)
        addHalf(piece.length, piece.unit);
    if (tenths > 0 && piece.unit == DateUnit::Hour)
        piece.length.exact += minutes { 6 * tenths };
    if (tenths > 0 && piece.unit == DateUnit::Day)
        piece.length.exact += minutes { 144 * tenths };
    return piece;
}

/// "1 hour (and) 30 minutes", "3 days, 2 hours": pieces of ever smaller units.
void addSmaller(const DateText &text, LengthRead &read, DateUnit unit)
{
    constexpr int kMostPieces = 6;
    for (int i = 0; i < kMostPieces; ++i) {
        const int behindComma = text.isMark(read.next, u',') ? read.next + 1 : read.next;
        const auto piece = readPiece(text, text.skip(behindComma, WordKind::And));
        if (!piece || piece->unit >= unit)
            return;
        read.length.exact += piece->length.exact;
        read.length.days += piece->length.days;
        read.length.months += piece->length.months;
        read.next = piece->next;
        unit = piece->unit;
    }
}

/// 90'
std::optional<LengthRead> readMarkedMinutes(const DateText &text, int at)
{
    if (!text.isNumber(at) || text[at].value < 0 || text[at].value > kMost || !text.isGluedMark(at + 1, u'\''))
        return std::nullopt;
    return LengthRead { { minutes { text[at].value }, {}, {} }, at + 2 };
}

} // namespace

std::optional<NumberRead> readNumber(const DateText &text, int at, bool takesArticles)
{
    if (text.isNumber(at) && text[at].value >= 0)
        return NumberRead { text[at].value, at + 1, true };
    const auto *word = text.sense(at, WordKind::Number);
    if (!word || (word->has(Ambiguous) && !takesArticles))
        return std::nullopt;
    return NumberRead { word->value, at + word->count, false };
}

bool isCounted(const DateText &text, int at, bool isOrdinal)
{
    for (const char16_t mark : { u'%', u'\u20ac', u'$', u'\u00a3', u'\u00b0', u'+', u'=' })
        if (text.isMark(at, mark))
            return true;
    // "17 ore 15" is no number of hours.
    const int behindMark = text.skip(at, WordKind::HourMark);
    if (behindMark > at && text.isNumber(behindMark))
        return false;
    const auto *unit = text.sense(at, WordKind::Unit);
    if (unit && !unit->has(Ambiguous) && !isOrdinal)
        return true;
    const auto *counted = text.sense(at, WordKind::NotAfter);
    return counted && (counted->value == 0 || (isOrdinal && counted->value == 2));
}

std::optional<LengthRead> readLength(const DateText &text, int at)
{
    if (const auto *fixed = text.sense(at, WordKind::Minutes))
        return LengthRead { { minutes { fixed->value }, {}, {} }, at + fixed->count };
    if (const auto marked = readMarkedMinutes(text, at))
        return marked;
    const auto piece = readPiece(text, at);
    if (!piece)
        return std::nullopt;
    LengthRead read { piece->length, piece->next };
    // 1h30, 1h30m
    if (piece->unit == DateUnit::Hour && text.isGluedNumber(read.next) && text[read.next].length == 2
        && text[read.next].value < 60) {
        read.length.exact += minutes { text[read.next].value };
        const auto *unit = text.sense(read.next + 1, WordKind::Unit);
        read.next += unit && text.isGlued(read.next + 1) && unit->value == static_cast<int>(DateUnit::Minute) ? 2 : 1;
        return read;
    }
    addSmaller(text, read, piece->unit);
    return read;
}

} // namespace mintaro
