// The days of DayReader that are numbers: in figures only, with a month, of the month.

#include "Platform/Foundation/Dates/CivilDays.h"
#include "Platform/Foundation/Dates/ClockReader.h"
#include "Platform/Foundation/Dates/DayReader.h"
#include "Platform/Foundation/Dates/LengthReader.h"

namespace mintaro {

using namespace std::chrono;

namespace {

constexpr int kMostDays = 31;
constexpr int kMostMonths = 12;

/// The year of two or four digits; empty for other numbers.
std::optional<int> fullYear(const DateToken &number)
{
    constexpr int kLastOfThisCentury = 60;
    if (number.length == 2)
        return number.value + (number.value > kLastOfThisCentury ? 1900 : 2000);
    return number.length == 4 && isWrittenYear(number.value) ? std::optional(number.value) : std::nullopt;
}

} // namespace

DayReader::Days DayReader::readIso(int at) const
{
    const DateToken &first = m_text[at];
    if (first.length == 8) {
        const auto day = dayOf(first.value / 10000, first.value / 100 % 100, first.value % 100);
        const bool hasTime = m_text.isGlued(at + 1) && m_text[at + 1].isLetter(u't');
        if (!day || !isWrittenYear(first.value / 10000) || !hasTime)
            return std::nullopt;
        return DayRead { .day = *day, .next = at + 1, .isIso = true };
    }
    if (first.length != 4 || !isWrittenYear(first.value))
        return std::nullopt;
    for (const char16_t mark : { u'-', u'/', u'.' }) {
        if (!m_text.isGluedMark(at + 1, mark) || !m_text.isGluedNumber(at + 2) || !m_text.isGluedMark(at + 3, mark)
            || !m_text.isGluedNumber(at + 4) || m_text[at + 2].length > 2 || m_text[at + 4].length > 2)
            continue;
        if (const auto day = dayOf(first.value, m_text[at + 2].value, m_text[at + 4].value))
            return DayRead { .day = *day, .next = at + 5, .isIso = mark == u'-' };
    }
    return std::nullopt;
}

/// 3/12, 3/12/2026, 3.12.26, 3-12-2026.
DayReader::Days DayReader::readNumeric(int at, const Lead &lead) const
{
    if (m_text[at].length > 2 || !m_text.isGluedNumber(at + 2) || m_text[at + 2].length > 2)
        return std::nullopt;
    const bool isSlash = m_text.isGluedMark(at + 1, u'/');
    const bool isStop = m_text.isGluedMark(at + 1, u'.');
    if (!isSlash && !isStop && !m_text.isGluedMark(at + 1, u'-'))
        return std::nullopt;
    const char16_t mark = isSlash ? u'/' : isStop ? u'.' : u'-';
    int month = m_text[at + 2].value;
    int number = m_text[at].value;
    if ((m_origin.isMonthFirst && number <= kMostMonths) || month > kMostMonths)
        std::swap(month, number);
    const int behind = at + 3;
    if (m_text.isGluedMark(behind, mark) && m_text.isGluedNumber(behind + 1)) {
        const auto year = fullYear(m_text[behind + 1]);
        const auto day = year ? dayOf(*year, month, number) : std::nullopt;
        if (!day || (!lead.isAny && m_text.isBehind(at, WordKind::NotBefore)))
            return std::nullopt;
        return DayRead { .day = *day, .next = behind + 2 };
    }
    const bool isFraction = m_text[at].value < m_text[at + 2].value && m_text[at + 2].value <= 4
        && m_text.isWord(behind) && !isClock(behind);
    const bool isAlways = m_text[at].value == 24 && m_text[at + 2].value == 7;
    // "practice 6/8 and 3/4"
    const int second = m_text.skip(behind, WordKind::And);
    if (!lead.isAny && second > behind && m_text.isNumber(second) && m_text.isGluedMark(second + 1, u'/'))
        return std::nullopt;
    const bool isNamed = !lead.isAny
        && (m_text.isBehind(at, WordKind::NotBefore) || m_text.isBehind(at, WordKind::In)
            || m_text.isBehind(at, WordKind::Measure) || isHouseNumber(at));
    const bool isNumberOfSomething = isCounted(m_text, behind) || isNamed || isStreetName(at, at);
    if (!lead.isAny && (!isSlash || isAlways || isFraction))
        return std::nullopt;
    if (isNumberOfSomething || (isStop && !lead.isDayOf) || (mark == u'-' && !lead.isDayOf))
        return std::nullopt;
    const auto day = monthDayFrom(m_anchor, month, number);
    return day ? Days { DayRead { .day = *day, .next = behind, .isYearOpen = true } } : std::nullopt;
}

/// 12-14/5
DayReader::Days DayReader::readNumericRange(int at) const
{
    const auto isShort = [this](int token) { return m_text.isGluedNumber(token) && m_text[token].length <= 2; };
    if (m_text[at].length > 2 || !m_text.isDash(at + 1) || !isShort(at + 2) || !m_text.isGluedMark(at + 3, u'/')
        || !isShort(at + 4) || m_text.isGluedMark(at + 5, u'/'))
        return std::nullopt;
    const Numbers numbers { m_text[at].value, m_text[at + 2].value, false, at + 1, at + 3 };
    return monthDays(m_text[at + 4].value, numbers, at + 5, std::nullopt);
}

std::optional<DayReader::Numbers> DayReader::readNumbers(int at, bool takesWords) const
{
    const auto readOne = [this, takesWords](int from, bool &isOrdinal) -> std::optional<NumberRead> {
        const auto *ordinal = m_text.sense(from, WordKind::Ordinal);
        if (ordinal && ordinal->value > 0 && !ordinal->has(Ambiguous)) {
            isOrdinal = true;
            return NumberRead { ordinal->value, from + ordinal->count, false };
        }
        auto number = m_text.isNumber(from) || takesWords ? readNumber(m_text, from, false) : std::nullopt;
        if (!number || number->value < 1 || number->value > kMostDays || (number->isDigits && m_text[from].length > 2))
            return std::nullopt;
        if (number->isDigits && m_text.isGlued(number->next) && m_text.sense(number->next, WordKind::OrdinalMark)) {
            isOrdinal = true;
            ++number->next;
        }
        return number;
    };
    bool isOrdinal = false;
    const auto first = readOne(at, isOrdinal);
    if (!first)
        return std::nullopt;
    Numbers numbers { first->value, std::nullopt, isOrdinal, first->next, first->next };
    int behind = m_text.isDash(first->next) ? first->next + 1
        : m_place == Place::Between         ? m_text.skip(first->next, WordKind::And)
                                            : m_text.skip(first->next, WordKind::To);
    if (behind == first->next)
        return numbers;
    behind = m_text.skip(behind, WordKind::Article);
    bool isSecondOrdinal = false;
    const auto second = readOne(behind, isSecondOrdinal);
    if (second && second->value > first->value && !m_text.isGluedMark(second->next, u':')) {
        numbers.last = second->value;
        numbers.next = second->next;
    }
    return numbers;
}

DayReader::Days DayReader::monthDays(int month, const Numbers &numbers, int next, std::optional<int> year) const
{
    if (month < 1 || month > kMostMonths)
        return std::nullopt;
    const auto first = year ? dayOf(*year, month, numbers.first) : monthDayFrom(m_anchor, month, numbers.first);
    if (!first)
        return std::nullopt;
    DayRead read { .day = *first, .next = next, .isYearOpen = !year };
    if (numbers.last) {
        read.last = monthDayFrom(*first, month, *numbers.last);
        if (!read.last)
            return std::nullopt;
    }
    return read;
}

std::optional<int> DayReader::yearAt(int at, int &next) const
{
    const int number = m_text.isMark(at, u',') ? at + 1 : m_text.isMark(at, u'/') || m_text.isDash(at) ? at + 1 : at;
    if (m_text.isMark(number, u'\'') && m_text.isGluedNumber(number + 1) && m_text[number + 1].length == 2) {
        next = number + 2;
        return fullYear(m_text[number + 1]);
    }
    // 5-Mar-09
    if (number == at + 1 && !m_text.isMark(at, u',') && m_text.isGlued(at) && m_text.isGluedNumber(number)
        && m_text[number].length == 2) {
        next = number + 1;
        return fullYear(m_text[number]);
    }
    // "11 Dec 75": no day nor hour, so it is a year.
    constexpr int kMostReadings = 60;
    if (number == at && m_text.isNumber(at) && m_text[at].length == 2 && m_text[at].value > kMostReadings
        && m_text.endsCleanly(at + 1) && !isCounted(m_text, at + 1)) {
        next = at + 1;
        return fullYear(m_text[at]);
    }
    const int plain = m_text.language().plainDayOfMonth ? m_text.skip(number, WordKind::Of) : number;
    for (const int place : { number, plain }) {
        if (!m_text.isNumber(place) || m_text[place].length != 4 || !isWrittenYear(m_text[place].value)
            || m_text.isGluedMark(place + 1, u':') || isCounted(m_text, place + 1)
            || (m_text.sense(place + 1, WordKind::HourName) && !m_text.isNumber(place + 2)))
            continue;
        next = place + 1;
        return m_text[place].value;
    }
    return std::nullopt;
}

/// "5 May", "the fifth of May", "12-14 May 2027", "3-dec-2026".
DayReader::Days DayReader::readNumberMonth(int at) const
{
    const auto numbers = readNumbers(at, true);
    if (!numbers)
        return std::nullopt;
    int behind = m_text.skip(numbers->next, WordKind::Of);
    const bool isGluedMark = m_text.isGlued(numbers->next)
        && (m_text.isDash(numbers->next) || m_text.isMark(numbers->next, u'/') || m_text.isMark(numbers->next, u'.'));
    if (behind == numbers->next && isGluedMark)
        ++behind;
    const auto *month = m_text.sense(behind, WordKind::Month);
    if (!month)
        return std::nullopt;
    int next = behind + month->count;
    // "terzo set" is a part of a match.
    const bool isWord = !m_text.isNumber(at) && numbers->isOrdinal;
    if (isStreetName(at, next) || (isWord && month->has(Abbreviated)))
        return std::nullopt;
    // "group 1 may arrive"
    const auto *verb = m_text.sense(next, WordKind::NotAfter);
    const bool isNamed = !numbers->isOrdinal && m_text.isBehind(at, WordKind::NotBefore);
    if (month->has(Ambiguous) && ((verb && verb->value == 1) || isNamed))
        return std::nullopt;
    const int stop = month->has(Abbreviated) ? skipStop(next) : next;
    int behindYear = stop;
    const auto year = yearAt(stop, behindYear);
    if (year)
        next = behindYear;
    return monthDays(month->value, *numbers, next, year);
}

/// "May 5", "May 5th, 2027", "May 12-14".
DayReader::Days DayReader::readMonthNumber(int at) const
{
    const auto *month = m_text.sense(at, WordKind::Month);
    if (!month || isStreetName(at, at + month->count))
        return std::nullopt;
    int number = at + month->count;
    if (month->has(Abbreviated))
        number = skipStop(number);
    const int behindMark = skipGluedMark(number);
    number = behindMark > number ? behindMark : m_text.skip(number, WordKind::Article);
    const auto numbers = readNumbers(number, false);
    if (!numbers || isCounted(m_text, numbers->next))
        return std::nullopt;
    // "May 3pm" has no day, and the second number of "May 5 3-4pm" none either.
    const auto *half = m_text.sense(numbers->next, WordKind::Meridiem);
    if (m_text.isGluedMark(numbers->next, u':') || half) {
        if (!numbers->last)
            return std::nullopt;
        return monthDays(
            month->value, { numbers->first, std::nullopt, false, 0, 0 }, numbers->nextToFirst, std::nullopt);
    }
    int next = numbers->next;
    const auto year = yearAt(next, next);
    if (!m_text.language().monthBeforeDay && !year && !m_text.isEnd(next) && !isClock(next))
        return std::nullopt;
    return monthDays(month->value, *numbers, next, year);
}

/// "in May", "May 2027": the first day of it.
DayReader::Days DayReader::readMonth(int at) const
{
    const auto *in = m_text.sense(at, WordKind::InMonth);
    const auto *month = m_text.sense(in ? at + in->count : at, WordKind::Month);
    if (!month || isName(at, at + month->count) || isStreetName(at, at))
        return std::nullopt;
    if (in && m_text[at + in->count].isCapital && !m_text.language().capitalizesDays)
        return std::nullopt;
    const int behind = (in ? at + in->count : at) + month->count;
    int next = behind;
    const auto year = yearAt(month->has(Abbreviated) ? skipStop(behind) : m_text.skip(behind, WordKind::Of), next);
    if (!year && (!in || month->has(Abbreviated) || m_text.isNumber(behind) || !m_text.endsCleanly(behind)))
        return std::nullopt;
    const auto day = year ? dayOf(*year, month->value, 1) : monthDayFrom(m_anchor, month->value, 1);
    return day ? Days { DayRead { .day = *day, .next = year ? next : behind } } : std::nullopt;
}

/// Behind the hyphen or slash that joins a month to its neighbours.
int DayReader::skipGluedMark(int at) const
{
    return m_text.isGlued(at) && (m_text.isDash(at) || m_text.isMark(at, u'/')) ? at + 1 : at;
}

/// "2026 May 22", "2026/Aug/10"
DayReader::Days DayReader::readYearMonth(int at) const
{
    if (m_text[at].length != 4 || !isWrittenYear(m_text[at].value))
        return std::nullopt;
    const int name = skipGluedMark(at + 1);
    const auto *month = m_text.sense(name, WordKind::Month);
    if (!month)
        return std::nullopt;
    const auto numbers = readNumbers(skipGluedMark(name + month->count), false);
    return numbers && !numbers->last ? monthDays(month->value, *numbers, numbers->next, m_text[at].value)
                                     : std::nullopt;
}

int DayReader::readOfMonth(int at, int &next) const
{
    const int body = m_text.skip(at, WordKind::Of);
    if (body == at)
        return -1;
    const int offset = readModifiedUnit(body, DateUnit::Month, next);
    if (next > body)
        return offset;
    const auto *plain = m_text.sense(body, WordKind::Unit);
    if (!plain || plain->value != static_cast<int>(DateUnit::Month))
        return -1;
    next = body + plain->count;
    return 0;
}

/// "on the 28th", "il 23", "dal 3 al 5", "the 5th of next month".
DayReader::Days DayReader::readDayOfMonth(int at, const Lead &lead) const
{
    const auto numbers = lead.isAny ? readNumbers(at, false) : std::nullopt;
    if (!numbers)
        return std::nullopt;
    int next = numbers->nextToFirst;
    if (const int offset = readOfMonth(next, next); offset >= 0) {
        const year_month month = monthOf(m_origin.today) + months { offset };
        const auto day = offset > 0
            ? dayOf(int { month.year() }, static_cast<int>(unsigned { month.month() }), numbers->first)
            : dayNumberFrom(m_anchor, numbers->first);
        return day ? Days { DayRead { .day = *day, .next = next } } : std::nullopt;
    }
    next = numbers->next;
    if (!isDayNumber(at, lead, *numbers))
        return std::nullopt;
    const auto first = dayNumberFrom(m_anchor, numbers->first);
    if (!first)
        return std::nullopt;
    DayRead read { .day = *first, .next = next };
    if (numbers->last)
        read.last = dayNumberFrom(*first, *numbers->last);
    return read;
}

/// The number with that before it and nothing but its like behind it is a day of the month.
bool DayReader::isDayNumber(int at, const Lead &lead, const Numbers &numbers) const
{
    const int next = numbers.next;
    constexpr int kLargestOfRanks = 10;
    const bool isEnd = m_text.isEnd(next) || m_text.sense(next, WordKind::At) || m_text.sense(next, WordKind::From)
        || m_text.isNumber(next) || m_text.sense(next, WordKind::To);
    const bool isDay = !numbers.isOrdinal ? m_text.language().plainDayOfMonth && lead.isDayOf
        : m_text.isNumber(at)             ? lead.isStrong || isEnd
                                          : lead.isStrong && (isEnd || numbers.first > kLargestOfRanks);
    if (!isDay || isCounted(m_text, next, numbers.isOrdinal) || m_text.sense(next, WordKind::Meridiem))
        return false;
    // "il 10 della juve"
    if (!numbers.isOrdinal && m_text.isWord(next) && m_text.sense(next, WordKind::Of)
        && m_text.sense(next, WordKind::On) && !m_text.sense(next, WordKind::Article)
        && !m_text.sense(next + 1, WordKind::DayPartWord))
        return false;
    // What the user's language is not must say more than "dal 3".
    if (!m_text.isOwnLanguage() && !numbers.isOrdinal && !numbers.last)
        return false;
    if (m_text.isBehind(lead.start, WordKind::NotBefore)
        || (!lead.isStrong && (m_text.isBehind(lead.start, WordKind::In) || m_text.isBehind(lead.start, WordKind::Of))))
        return false;
    if (m_text.isGlued(next) && (!m_text.isEnd(next) || m_text.isMark(next, u':') || m_text.isMark(next, u'/')))
        return false;
    // "dal 20 al 50%"
    const int behindTo = m_text.isDash(next) ? next + 1 : m_text.skip(next, WordKind::To);
    return behindTo == next || !m_text.isNumber(behindTo) || !isCounted(m_text, behindTo + 1, numbers.isOrdinal);
}

/// "via Assarotti 12/3": behind a street and its name.
bool DayReader::isHouseNumber(int at) const
{
    constexpr int kLongestName = 4;
    for (int i = at - 1; i >= at - kLongestName && m_text.isWord(i); --i)
        if (m_text.sense(i, WordKind::Street) && !m_text.language().monthBeforeDay)
            return true;
    return false;
}

/// "via XX Settembre 12", "6th October Bridge": a day in a street's name.
bool DayReader::isStreetName(int at, int next) const
{
    if (m_text.language().monthBeforeDay)
        return m_text.isWord(next) && m_text[next].isCapital && m_text.sense(next, WordKind::Street);
    // Between the street and the month there is a number at most.
    const auto isNumeral = [this](int token) {
        return m_text.isNumber(token) || m_text.sense(token, WordKind::OrdinalMark)
            || m_text.sense(token, WordKind::Ordinal) || m_text.sense(token, WordKind::RomanNumeral);
    };
    int first = at;
    while (first > 0 && first > at - 3 && isNumeral(first - 1))
        --first;
    return m_text.isBehind(first, WordKind::Street);
}

} // namespace mintaro
