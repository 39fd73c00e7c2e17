// The days of DayReader that are weekdays, alone or with a number or a date behind them.

#include "Platform/Foundation/Dates/CivilDays.h"
#include "Platform/Foundation/Dates/DayReader.h"
#include "Platform/Foundation/Dates/LengthReader.h"

namespace mintaro {

using namespace std::chrono;

bool DayReader::isName(int at, int next) const
{
    const int before = m_text.isMark(at - 1, u'.') ? at - 1 : at;
    if (m_text.isBehind(before, WordKind::NameBefore) || m_text.isBehind(before, WordKind::Possessive)
        || (m_text.language().capitalizesDays && m_text.isWord(next) && m_text[next].isCapital
            && m_text.sense(next, WordKind::Street))
        || m_text.sense(next, WordKind::NameAfter))
        return true;
    // "The Thursday Murder Club"
    if (m_text.isBehind(at, WordKind::Article) && m_text[at - 1].isCapital && m_text.isWord(next)
        && m_text[next].isCapital)
        return true;
    // Where days have no capital, "Ernesto Sabato" is a person.
    return !m_text.language().capitalizesDays && m_text[at].isCapital && at > 1 && m_text.isWord(at - 1)
        && m_text[at - 1].isCapital && !isClock(next);
}

/// What is an everyday word as well counts where something of a date stands by it.
bool DayReader::hasCompany(int at, int next, const Lead &lead) const
{
    const int behind = skipStop(next);
    const int number = m_text.isMark(behind, u',') ? behind + 1 : behind;
    if (m_text.isNumber(number))
        return m_text[number].length <= 2 && !readLength(m_text, number) && !isCounted(m_text, number + 1);
    // "da Gio", "Gio Ponti", "Gio porta la torta"
    if (m_text[at].isCapital && !m_text.language().capitalizesDays
        && (lead.isAny || (m_text.isWord(next) && !isClock(behind))))
        return false;
    if (m_text.isBehind(lead.isAny ? lead.next : at, WordKind::Subject) && !m_text.isBehind(at, WordKind::On))
        return false;
    if (m_text.isDash(next) && m_text.sense(next + 1, WordKind::Weekday))
        return true;
    if (m_text.isDash(at - 1) && m_text.isBehind(at - 1, WordKind::Weekday))
        return true;
    if (m_text.sense(next, WordKind::DayPartWord) || isClock(behind))
        return true;
    return m_text.isOwnLanguage()
        && (m_text.isEnd(next) || lead.isAny || (at == 0 && !m_text.language().capitalizesDays)
            || m_text.isBehind(at, WordKind::To));
}

DayReader::Days DayReader::readWeekday(int at, const Lead &lead)
{
    int name = at;
    WordKind modifier = WordKind::Weekday;
    for (const WordKind kind : { WordKind::This, WordKind::Next, WordKind::Last })
        if (const int behind = m_text.skip(at, kind); behind > at) {
            modifier = kind;
            name = behind;
        }
    const auto *weekday = m_text.sense(name, WordKind::Weekday);
    if (!weekday)
        return std::nullopt;
    int next = name + weekday->count;
    // An accent typed as an apostrophe: lunedi'
    const DateToken &word = m_text[name];
    if (m_text.isGluedMark(next, u'\'') && !weekday->has(Abbreviated) && m_text.language().plainDayOfMonth
        && word.letter == u'i' && !(m_text.isGlued(next + 1) && m_text.isWord(next + 1)))
        ++next;
    if (isName(at, next) || (weekday->has(Ambiguous) && name == at && !hasCompany(at, next, lead)))
        return std::nullopt;
    for (const WordKind kind : { WordKind::Next, WordKind::Last })
        if (const auto *behind = m_text.sense(next, kind);
            behind && behind->has(Behind) && modifier == WordKind::Weekday) {
            modifier = kind;
            next += behind->count;
        }
    const int value = weekday->value;
    // "lunedi prossimo 16 marzo": the date says it better.
    if (modifier == WordKind::Next)
        if (const auto more = readBehindWeekday(value, next); more && more->isYearOpen)
            return more;
    if (modifier == WordKind::Next)
        return DayRead { .day = weekdayOfWeek(m_origin.today, value, 1), .next = next };
    if (modifier == WordKind::Last)
        return DayRead { .day = weekdayBefore(m_origin.today, value), .next = next };
    if (const auto more = readBehindWeekday(value, next))
        return more;
    if (weekday->has(Abbreviated) && m_text.isGluedMark(next, u'.'))
        if (const auto more = readBehindWeekday(value, next + 1))
            return more;
    return DayRead { .day = weekdayFrom(m_anchor, value), .next = next };
}

/// "friday 13", "friday, 5 May", "monday of next week", "monday week".
DayReader::Days DayReader::readBehindWeekday(int weekday, int next)
{
    if (const auto *later = m_text.sense(next, WordKind::WeekLater))
        return DayRead { .day = weekdayFrom(m_anchor, weekday) + weeks { later->value }, .next = next + later->count };
    int week = next;
    const int ofWeek = m_text.skip(next, WordKind::Of);
    if (const int offset = readModifiedUnit(ofWeek, DateUnit::Week, week); week > ofWeek)
        return DayRead { .day = weekdayOfWeek(m_origin.today, weekday, offset), .next = week };
    int number = m_text.isMark(next, u',') ? next + 1 : next;
    const bool isOther = m_text.sense(number, WordKind::At) || m_text.sense(number, WordKind::From)
        || m_text.sense(number, WordKind::To);
    const int behindArticle = isOther ? number : m_text.skip(number, WordKind::DayOf);
    const bool hasArticle = behindArticle > number;
    number = behindArticle;
    Days best;
    const auto take = [&best](const Days &found) {
        if (found && (!best || found->next > best->next))
            best = found;
    };
    if (m_text.isNumber(number)) {
        take(readIso(number));
        take(readNumeric(number, { .start = number, .next = number, .isAny = true, .isDayOf = hasArticle }));
        take(readNumericRange(number));
    }
    take(readMonthNumber(number));
    take(readNumberMonth(number));
    if (best && (m_text.endsCleanly(best->next) || m_text.isDash(best->next)))
        return best;
    const auto numbers = readNumbers(number, false);
    if (!numbers || (!m_text.isNumber(number) && !hasArticle))
        return std::nullopt;
    const int behind = numbers->nextToFirst;
    if (isCounted(m_text, behind, numbers->isOrdinal) || (!hasArticle && !numbers->isOrdinal && isClock(number))
        || !(m_text.endsCleanly(behind) || m_text.isDash(behind)))
        return std::nullopt;
    const auto day = weekdayNumberFrom(m_anchor, weekday, numbers->first);
    return day ? Days { DayRead { .day = *day, .next = behind } } : std::nullopt;
}

/// "the first monday of June", "l'ultimo venerdì del mese".
DayReader::Days DayReader::readNthWeekday(int at) const
{
    int number = 0;
    int next = at;
    if (const auto *ordinal = m_text.sense(at, WordKind::Ordinal)) {
        number = ordinal->value;
        next += ordinal->count;
    } else if (m_text.isNumber(at) && m_text.isGlued(at + 1) && m_text.sense(at + 1, WordKind::OrdinalMark)) {
        number = m_text[at].value;
        next += 2;
    }
    const auto *weekday = number == 0 || number > 5 ? nullptr : m_text.sense(next, WordKind::Weekday);
    if (!weekday)
        return std::nullopt;
    next += weekday->count;
    const int behind = m_text.skip(next, WordKind::Of);
    if (behind == next)
        return std::nullopt;
    if (const auto *name = m_text.sense(behind, WordKind::Month)) {
        int end = behind + name->count;
        const auto year = yearAt(end, end);
        const auto first = firstOfMonth(m_origin.today, name->value, year);
        const auto day = first ? nthWeekday(monthOf(*first), weekday->value, number) : std::nullopt;
        return day ? Days { DayRead { .day = *day, .next = end } } : std::nullopt;
    }
    int end = next;
    const int offset = readOfMonth(next, end);
    if (offset < 0)
        return std::nullopt;
    year_month month = monthOf(m_origin.today) + months { offset };
    auto day = nthWeekday(month, weekday->value, number);
    if (offset == 0 && (!day || *day < m_origin.today))
        day = nthWeekday(month + months { 1 }, weekday->value, number);
    return day ? Days { DayRead { .day = *day, .next = end } } : std::nullopt;
}

} // namespace mintaro
