#include "Platform/Foundation/Dates/PhraseReader.h"

#include "Platform/Foundation/Dates/CivilDays.h"
#include "Platform/Foundation/Dates/ClockReader.h"

namespace mintaro {

using namespace std::chrono;

namespace {

std::optional<local_days> inYear(local_days day, int year)
{
    const year_month_day civil { day };
    return dayOf(year, static_cast<int>(unsigned { civil.month() }), static_cast<int>(unsigned { civil.day() }));
}

} // namespace

std::optional<DatePhrase> PhraseReader::read(int at)
{
    if (!m_text.beginsCleanly(at))
        return std::nullopt;
    const int afterFor = m_text.skip(at, WordKind::For);
    const bool mayBeLength = m_text.isNumber(afterFor)
        || (afterFor < m_text.size() && m_text.hasAny(afterFor, maskOf(WordKind::Number, WordKind::Minutes)));
    auto length = mayBeLength ? readLength(m_text, afterFor) : std::nullopt;
    // "Il Sole 24 Ore ore 14"
    if (length && afterFor == at && m_text.isWord(length->next - 1) && m_text[length->next - 1].isCapital)
        length.reset();
    auto best = readMoments(at);
    if (best && isInTitle(at, *best)) {
        best->isTitle = true;
        return best;
    }
    if (length && afterFor == at)
        if (auto shifted = readBeforeOrAfter(*length))
            return shifted;
    if (!length || (!length->length.isExact() && afterFor == at))
        return best;
    auto behind = readMoments(skipGlue(length->next));
    if (!behind || behind->end || behind->start.instant || (best && best->next >= behind->next))
        return best;
    behind->length = length->length;
    return behind;
}

/// A day without a time, in a line about films and songs, written as a name is.
bool PhraseReader::isInTitle(int at, const DatePhrase &phrase) const
{
    if (!m_text.isAboutMedia() || phrase.start.clock || phrase.start.instant)
        return false;
    if (m_text.isBehind(at, WordKind::Media))
        return true;
    bool isCapital = false;
    for (int i = at; i < phrase.next; ++i)
        isCapital = isCapital || m_text[i].isCapital;
    const bool isNextCapital = m_text.isWord(phrase.next) && m_text[phrase.next].isCapital;
    return isCapital && (!m_text.language().capitalizesDays || isNextCapital || !m_text.sense(at, WordKind::Weekday));
}

/// "2 hours before noon", "10 minutes after midnight".
std::optional<DatePhrase> PhraseReader::readBeforeOrAfter(const LengthRead &read)
{
    const auto *direction = m_text.sense(read.next, WordKind::Before);
    if (!direction || !read.length.isExact())
        return std::nullopt;
    const int behind = read.next + direction->count;
    std::optional<DatePhrase> phrase;
    if (const auto *now = m_text.sense(behind, WordKind::Now)) {
        phrase = DatePhrase { .next = behind + now->count };
        phrase->start.instant = floor<minutes>(m_origin.now);
    } else {
        phrase = readMoments(behind);
    }
    if (!phrase || phrase->end || phrase->length)
        return std::nullopt;
    phrase->shift = direction->value * read.length.exact;
    return phrase;
}

std::optional<DatePhrase> PhraseReader::readMoments(int at)
{
    const int behindBetween = m_text.skip(at, WordKind::Between);
    std::optional<Part> part = readPart(at, m_origin.today);
    const bool isBetween = !part && behindBetween > at;
    if (isBetween) {
        m_isBetween = true;
        part = readPart(behindBetween, m_origin.today);
        m_isBetween = false;
    }
    if (!part)
        return std::nullopt;
    DatePhrase phrase { .start = part->moment, .next = part->next };
    addEnd(phrase, *part, isBetween);
    if (isBetween && !phrase.end)
        return std::nullopt;
    if (!phrase.end)
        addLength(phrase);
    if (!m_text.endsCleanly(phrase.next))
        return std::nullopt;
    return phrase;
}

/// Behind a comma, a spaced hyphen or a full stop of an abbreviation, where something may still follow.
int PhraseReader::skipGlue(int at) const
{
    if (m_text.isMark(at, u',') || (m_text.isDash(at) && !m_text.isGlued(at)) || m_text.isMark(at, u'|')
        || m_text.isMark(at, u'\u22c5') || m_text.isMark(at, u'\u00b7') || m_text.isMark(at, u'\u2022'))
        return at + 1;
    constexpr int kLongestAbbreviation = 5;
    if (m_text.isGluedMark(at, u'.') && m_text.isWord(at - 1) && m_text[at - 1].length <= kLongestAbbreviation)
        return at + 1;
    return at;
}

std::optional<PhraseReader::Part> PhraseReader::readDay(int at, local_days anchor)
{
    const auto read = m_days.read(at, anchor,
        m_isBetween   ? DayReader::Place::Between
            : m_isEnd ? DayReader::Place::End
                      : DayReader::Place::Start);
    if (!read)
        return std::nullopt;
    Part part { .lastDay = read->last, .next = read->next };
    part.moment.day = read->day;
    part.moment.part = read->part;
    part.moment.instant = read->instant;
    part.moment.isYearOpen = read->isYearOpen;
    if (read->isIso)
        addIsoTime(part);
    return part;
}

std::optional<PhraseReader::Part> PhraseReader::readPart(int at, local_days anchor)
{
    using enum WordKind;
    if (at >= m_text.size())
        return std::nullopt;
    const bool mayBeTime = m_text.isNumber(at)
        || m_text.hasAny(at, maskOf(At, HourMark, From, Between, About, Noon, Midnight, FractionBefore, Number));
    auto part = readDay(at, anchor);
    const auto time = mayBeTime ? readTime(m_text, at, false) : std::nullopt;
    if (part && (!time || part->next >= time->next)) {
        if (!part->moment.clock && !part->moment.instant)
            addTime(*part);
        return part;
    }
    if (!time) {
        // "2-4 tomorrow", "midnight tomorrow": the day behind makes a time of it.
        const auto beside = mayBeTime ? readTime(m_text, at, true) : std::nullopt;
        const bool isNamed = beside && (m_text.sense(at, Noon) || m_text.sense(at, Midnight));
        if (!beside || (!beside->end && !isNamed))
            return std::nullopt;
        Part early { .moment = { .clock = beside->start }, .timeEnd = beside->end, .next = beside->next };
        addDay(early);
        return early.moment.day ? std::optional(early) : std::nullopt;
    }
    Part timed { .moment = { .clock = time->start }, .timeEnd = time->end, .next = time->next };
    addDay(timed);
    return timed;
}

/// Behind the date of ISO 8601: T10:30, T10:30:00Z, T103000+0200.
void PhraseReader::addIsoTime(Part &part) const
{
    int at = part.next;
    if (!m_text.isGlued(at) || !m_text[at].isLetter(u't') || !m_text.isGluedNumber(at + 1))
        return;
    ++at;
    WrittenTime clock { .hour = 0, .is24Hour = true };
    const DateToken &first = m_text[at];
    if (first.length == 2) {
        clock.hour = first.value;
        int *const parts[] = { &clock.minute, &clock.second };
        ++at;
        for (int *value : parts) {
            if (!m_text.isGluedMark(at, u':') || !m_text.isGluedNumber(at + 1) || m_text[at + 1].length != 2)
                break;
            *value = m_text[at + 1].value;
            at += 2;
        }
    } else if (first.length == 4 || first.length == 6) {
        const int value = first.length == 4 ? first.value * 100 : first.value;
        clock = { .hour = value / 10000, .minute = value / 100 % 100, .second = value % 100, .is24Hour = true };
        ++at;
    } else {
        return;
    }
    if (clock.hour > 24 || clock.minute > 59 || clock.second > 59)
        return;
    part.moment.clock = clock;
    part.next = at;
    const local_seconds reading
        = *part.moment.day + hours { clock.hour } + minutes { clock.minute } + seconds { clock.second };
    const sys_seconds utc { reading.time_since_epoch() };
    if (m_text.isGlued(at) && m_text[at].isLetter(u'z')) {
        part.moment.instant = utc;
        part.next = at + 1;
    } else if ((m_text.isGluedMark(at, u'+') || (m_text.isDash(at) && m_text.isGlued(at)))
        && m_text.isGluedNumber(at + 1)) {
        const bool hasColon = m_text.isGluedMark(at + 2, u':') && m_text.isGluedNumber(at + 3);
        const int value = m_text[at + 1].value;
        const int offset = hasColon      ? value * 60 + m_text[at + 3].value
            : m_text[at + 1].length == 4 ? value / 100 * 60 + value % 100
                                         : value * 60;
        // No clock is further ahead or behind (UTC+14, UTC-12).
        constexpr int kMostMinutes = 14 * 60;
        if (value < 0 || m_text[at + 1].length % 2 != 0 || offset > kMostMinutes)
            return;
        part.moment.instant = utc - (m_text.isDash(at) ? -1 : 1) * minutes { offset };
        part.next = at + (hasColon ? 4 : 2);
    }
}

void PhraseReader::addTime(Part &part) const
{
    const bool isColon = m_text.isGluedMark(part.next, u':') && !m_text.isGlued(part.next + 1);
    const int at = isColon ? part.next + 1 : skipGlue(part.next);
    // "12 May - 14 May" goes on with a day, and "Mon-Wed" with a weekday.
    auto time = readTime(m_text, at, true);
    if (!time && m_text.isWord(at) && m_text.sense(at, WordKind::And) == nullptr)
        time = readTime(m_text, m_text.skip(at, WordKind::On), true);
    // "tonight 8": at the end of a line nothing else is counted in the evening.
    constexpr int kMostOpenHours = 12;
    if (!time && part.moment.part && m_text.isNumber(at) && m_text[at].value > 0 && m_text[at].value <= kMostOpenHours
        && m_text.isEnd(at + 1) && m_text.endsCleanly(at + 1))
        time = TimeRead { { .hour = m_text[at].value, .isOpen = true }, std::nullopt, at + 1 };
    if (!time)
        return;
    part.moment.clock = time->start;
    part.timeEnd = time->end;
    part.next = time->next;
    addYear(part);
}

/// The year behind the time, as clocks and servers write it: "Thu Oct 26 11:00:09 2023".
void PhraseReader::addYear(Part &part) const
{
    const int at = part.next;
    if (!part.moment.isYearOpen || !m_text.isNumber(at) || m_text[at].length != 4 || !isWrittenYear(m_text[at].value)
        || !m_text.endsCleanly(at + 1) || isCounted(m_text, at + 1))
        return;
    const auto day = inYear(*part.moment.day, m_text[at].value);
    if (!day)
        return;
    part.moment.day = day;
    part.moment.isYearOpen = false;
    part.next = at + 1;
}

/// The day behind a time: "5pm tomorrow", "alle 13 di domani".
void PhraseReader::addDay(Part &part)
{
    const int at = skipGlue(part.next);
    auto day = readDay(at, m_origin.today);
    if (!day)
        day = readDay(m_text.skip(at, WordKind::Of), m_origin.today);
    if (!day || day->moment.instant || day->moment.clock)
        return;
    part.moment.day = day->moment.day;
    part.moment.part = day->moment.part;
    part.moment.isYearOpen = day->moment.isYearOpen;
    part.lastDay = day->lastDay;
    part.next = day->next;
}

/// The other end of a range of days, or of a day and time.
void PhraseReader::addEnd(DatePhrase &phrase, Part &part, bool isBetween)
{
    if (part.isRange()) {
        DateMoment end { .day = part.lastDay, .clock = part.timeEnd, .part = part.moment.part };
        if (!end.clock)
            end.clock = part.moment.clock;
        phrase.end = end;
        return;
    }
    if (part.moment.instant && !part.moment.clock)
        return;
    int behind = isBetween ? m_text.skip(part.next, WordKind::And) : m_text.skip(part.next, WordKind::To);
    if (behind == part.next && m_text.isDash(part.next))
        behind = part.next + 1;
    if (behind == part.next)
        return;
    m_isEnd = true;
    const auto end = readPart(behind, part.moment.day.value_or(m_origin.today));
    m_isEnd = false;
    const bool isEndOfTime = end && part.moment.clock && end->moment.clock;
    const bool isEndOfDays = end && end->moment.day && part.moment.day;
    if (!end || end->lastDay || (!isEndOfTime && !isEndOfDays) || !m_text.endsCleanly(end->next))
        return;
    phrase.end = end->moment;
    phrase.next = end->next;
    if (part.moment.isYearOpen && end->moment.day && !end->moment.isYearOpen) {
        // "28 Dec - 3 Jan 2027": the year that is named is the end's.
        const int year = int { year_month_day { *end->moment.day }.year() };
        auto first = inYear(*part.moment.day, year);
        if (first && *first > *end->moment.day)
            first = inYear(*part.moment.day, year - 1);
        phrase.start.day = first ? first : part.moment.day;
    }
    if (end->timeEnd) {
        // "Mon-Wed 9-10": the days end at the later time.
        phrase.start.clock = end->moment.clock;
        phrase.end->clock = end->timeEnd;
    } else if (!part.moment.clock && end->moment.clock) {
        // "Mon-Wed at 9" begins at nine as well.
        phrase.start.clock = end->moment.clock;
    }
}

/// "for 2 hours", "(2h)" and the like behind a start.
void PhraseReader::addLength(DatePhrase &phrase) const
{
    const int at = m_text.isMark(phrase.next, u',') ? phrase.next + 1 : phrase.next;
    const int behindFor = m_text.skip(at, WordKind::For);
    const auto length = readLength(m_text, behindFor);
    if (!length || !m_text.endsCleanly(length->next) || (behindFor == at && !length->length.isExact()))
        return;
    // "tomorrow 20 minutes late" has no length, but "6pm 2h" has.
    if (behindFor == at && !phrase.start.clock)
        return;
    phrase.length = length->length;
    phrase.next = length->next;
}

} // namespace mintaro
