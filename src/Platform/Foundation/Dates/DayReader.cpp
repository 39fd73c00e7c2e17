#include "Platform/Foundation/Dates/DayReader.h"

#include "Platform/Foundation/Dates/CivilDays.h"
#include "Platform/Foundation/Dates/ClockReader.h"
#include "Platform/Foundation/Dates/LengthReader.h"

namespace mintaro {

using namespace std::chrono;

namespace {

constexpr int kSaturday = 6;

DayPart partOf(const DateText::Sense &sense)
{
    return static_cast<DayPart>(sense.value % 10);
}

} // namespace

std::optional<DayRead> DayReader::read(int at, local_days anchor, Place place)
{
    m_anchor = anchor;
    m_place = place;
    const bool isDayBehindTo = place == Place::End && m_text.language().plainDayOfMonth;
    Lead lead { .start = at, .next = at, .isAny = isDayBehindTo, .isDayOf = isDayBehindTo, .isStrong = isDayBehindTo };
    // Some connectors belong to the day itself, as in "the day after tomorrow": the longest reading counts, and of two
    // as long the one with fewer connectors.
    Days best = readBody(at, lead);
    constexpr int kMostConnectors = 3;
    for (int i = 0; i < kMostConnectors && extendLead(lead); ++i)
        if (const Days more = readBody(lead.next, lead); more && (!best || more->next > best->next))
            best = more;
    if (!best || best->instant || best->part)
        return best;
    const auto *part = m_text.sense(best->next, WordKind::DayPartWord);
    const auto *phrase = m_text.sense(best->next, WordKind::PartPhrase);
    if (phrase && (!part || phrase->count > part->count))
        part = phrase;
    if (part && m_text.endsCleanly(best->next + part->count)
        && !m_text.sense(best->next + part->count, WordKind::NameAfter)) {
        best->part = partOf(*part);
        best->next += part->count;
    }
    return best;
}

/// Takes one more connector; false where there is none.
bool DayReader::extendLead(Lead &lead) const
{
    const DateText::Sense *longest = nullptr;
    for (const WordKind kind : { WordKind::DayOf, WordKind::On, WordKind::From, WordKind::For, WordKind::Article }) {
        const auto *sense = m_text.sense(lead.next, kind);
        if (sense && (!longest || sense->count > longest->count))
            longest = sense;
    }
    if (!longest)
        return false;
    const bool isArticleAlone
        = longest->count == 1 && m_text.sense(lead.next, WordKind::Article) && m_text.language().monthBeforeDay;
    lead.isDayOf = longest->kind == WordKind::DayOf;
    lead.isStrong = (lead.isAny || !isArticleAlone) && lead.isDayOf;
    lead.isAny = true;
    lead.next += longest->count;
    return true;
}

DayReader::Days DayReader::readBody(int at, const Lead &lead)
{
    if (at >= m_text.size())
        return std::nullopt;
    Days best;
    const auto take = [this, &best](const Days &found) {
        const bool isHyphenated = found && m_text.isDash(found->next);
        if (found && (!best || found->next > best->next)
            && (m_text.endsCleanly(found->next) || isHyphenated || found->isIso))
            best = found;
    };
    using enum WordKind;
    const bool isNumber = m_text.isNumber(at);
    const auto begins = [this, at](auto... kinds) { return m_text.hasAny(at, maskOf(kinds...)); };
    if (isNumber) {
        take(readIso(at));
        take(readNumeric(at, lead));
        take(readNumericRange(at));
        take(readYearMonth(at));
    }
    if (begins(Month))
        take(readMonthNumber(at));
    if (begins(Month, InMonth))
        take(readMonth(at));
    if (begins(Weekday, This, Next, Last))
        take(readWeekday(at, lead));
    if (begins(RelativeDay, TonightWord, Now, This, Last))
        take(readRelative(at));
    if (begins(Unit, This, Next, Last))
        take(readUnit(at));
    if (begins(EndOf, EndOfUnit))
        take(readEndOf(at));
    if (begins(Weekend, This, Next, Last))
        take(readWeekend(at));
    if (begins(DayPartWord))
        take(readPartOf(at));
    if (isNumber || begins(Ordinal))
        take(readNthWeekday(at));
    if (isNumber || begins(Number, Ordinal)) {
        take(readNumberMonth(at));
        take(readDayOfMonth(at, lead));
    }
    if (isNumber || begins(In, Number, Minutes, Unit))
        take(readOffset(at));
    return best;
}

DayReader::Days DayReader::readRelative(int at) const
{
    if (const auto *word = m_text.sense(at, WordKind::RelativeDay)) {
        // "USA Today", "Italia Oggi"
        if (at > 1 && m_text[at].isCapital && m_text.isWord(at - 1) && m_text[at - 1].isCapital
            && m_text.isEnd(at + word->count + 1) && !isClock(at + word->count))
            return std::nullopt;
        DayRead read { .day = m_origin.today + days { word->value }, .next = at + word->count };
        if (const auto *later = m_text.sense(read.next, WordKind::WeekLater);
            later && (later->count > 1 || word->value >= 0)) {
            read.day += weeks { later->value };
            read.next += later->count;
        }
        return read;
    }
    if (const auto *word = m_text.sense(at, WordKind::TonightWord)) {
        const int offset = word->value < 0 ? -1 : word->value / 10;
        return DayRead { .day = m_origin.today + days { offset },
            .part = static_cast<DayPart>(word->value - 10 * offset),
            .next = at + word->count };
    }
    if (const auto *now = m_text.sense(at, WordKind::Now)) {
        // "from now on" and "now and then" are no moments; what ends a line is.
        const bool isMoment = m_text.isOwnLanguage() && m_text.isEnd(at + now->count)
            && !m_text.isBehind(at, WordKind::On) && !m_text.isBehind(at, WordKind::For)
            && !m_text.isBehind(at, WordKind::From) && !(m_text[at].isCapital && at > 0);
        if (isMoment)
            return DayRead { .day = m_origin.today, .instant = floor<minutes>(m_origin.now), .next = at + now->count };
    }
    const auto *last = m_text.language().monthBeforeDay ? m_text.sense(at, WordKind::Last) : nullptr;
    const auto *modifier = last ? last : m_text.sense(at, WordKind::This);
    const auto *part = modifier ? m_text.sense(at + modifier->count, WordKind::DayPartWord) : nullptr;
    if (!part)
        return std::nullopt;
    return DayRead {
        .day = m_origin.today - days { last ? 1 : 0 }, .part = partOf(*part), .next = at + modifier->count + part->count
    };
}

/// "in 3 days", "2 days ago", "a week from monday".
DayReader::Days DayReader::readOffset(int at)
{
    const auto *in = m_text.sense(at, WordKind::In);
    auto length = readLength(m_text, in ? at + in->count : at);
    // "10 km in 45 minutes"
    if (length && in && length->length.isExact() && m_text.isNumber(at - 2) && isCounted(m_text, at - 1))
        return std::nullopt;
    // "Around the World in 80 Days"
    if (length && in && m_text.isWord(length->next - 1) && m_text[length->next - 1].isCapital && !m_text[at].isCapital)
        return std::nullopt;
    // "fortnight from today", "week on monday"
    const auto *unit = length || in ? nullptr : m_text.sense(at, WordKind::Unit);
    if (unit
        && (unit->value == static_cast<int>(DateUnit::Week) || unit->value == static_cast<int>(DateUnit::Fortnight))
        && !unit->has(Ambiguous))
        length = LengthRead { { .days = weeks { unit->value == static_cast<int>(DateUnit::Week) ? 1 : 2 } },
            at + unit->count };
    if (!length)
        return std::nullopt;
    int next = length->next;
    DayRead base { .day = m_origin.today, .next = next };
    int direction = 1;
    if (in) {
        // "in two weeks' time"
        const int behind = m_text.isGluedMark(next, u'\'') ? next + 1 : next;
        next = m_text.sense(behind, WordKind::TimeWord) ? behind + 1 : next;
    } else if (const auto *ago = m_text.sense(next, WordKind::Ago)) {
        direction = -1;
        next += ago->count;
    } else if (const auto *now = m_text.sense(next, WordKind::FromNow)) {
        next += now->count;
    } else {
        const bool joins = m_text.sense(next, WordKind::Before) || m_text.sense(next, WordKind::From)
            || m_text.sense(next, WordKind::On) || (m_text.sense(next, WordKind::RelativeDay) && !unit);
        if (length->length.isExact() || !joins || m_text.isBehind(at, WordKind::For) || !readBase(base, direction))
            return std::nullopt;
        next = base.next;
    }
    if (length->length.isExact())
        return DayRead { .day = m_origin.today,
            .instant = floor<minutes>(m_origin.now) + direction * length->length.exact,
            .next = next };
    const local_days moved = monthsLater(base.day, direction * length->length.months) + direction * length->length.days;
    if (length->length.exact.count() != 0) {
        // "in 3 days and 2 hours": the clock's reading counts then.
        const LocalTime reading = m_origin.calendar.local(floor<minutes>(m_origin.now)) + (moved - m_origin.today);
        return DayRead { .day = moved,
            .instant = m_origin.calendar.timeZone().toInstant(reading) + direction * length->length.exact,
            .next = next };
    }
    // "in two weeks on monday": of that week.
    const int behind = m_text.skip(m_text.isMark(next, u',') ? next + 1 : next, WordKind::On);
    const auto *weekday = m_text.sense(behind, WordKind::Weekday);
    const bool isWeeks = length->length.months.count() == 0 && length->length.days.count() % 7 == 0;
    if (weekday && isWeeks && base.day == m_origin.today && !weekday->has(Ambiguous))
        return DayRead { .day = weekdayOfWeek(moved, weekday->value, 0), .next = behind + weekday->count };
    return DayRead { .day = moved, .next = next };
}

/// The day that "a week from", "two days before" and the like count from.
bool DayReader::readBase(DayRead &base, int &direction)
{
    if (m_depth > 0)
        return false;
    int next = base.next;
    if (const auto *before = m_text.sense(next, WordKind::Before)) {
        direction = before->value;
        next += before->count;
    }
    ++m_depth;
    const auto day = DayReader(*this).read(next, m_anchor);
    --m_depth;
    if (!day || day->last || day->instant)
        return false;
    base = *day;
    return true;
}

int DayReader::readModifiedUnit(int at, DateUnit unit, int &next) const
{
    const auto isUnit = [unit](const DateText::Sense *sense) {
        return sense && sense->value == static_cast<int>(unit) && !sense->has(Ambiguous);
    };
    for (const WordKind kind : { WordKind::This, WordKind::Next, WordKind::Last }) {
        const int offset = kind == WordKind::This ? 0 : kind == WordKind::Next ? 1 : -1;
        const auto *before = m_text.sense(at, kind);
        const auto *named = before ? m_text.sense(at + before->count, WordKind::Unit) : nullptr;
        if (isUnit(named)) {
            next = at + before->count + named->count;
            return offset;
        }
        const auto *first = m_text.sense(at, WordKind::Unit);
        const auto *behind = isUnit(first) ? m_text.sense(at + first->count, kind) : nullptr;
        if (behind && behind->has(Behind)) {
            next = at + first->count + behind->count;
            return offset;
        }
    }
    next = at;
    return 0;
}

/// "next week", "next week on monday", "il mese prossimo".
DayReader::Days DayReader::readUnit(int at)
{
    int next = at;
    if (const int offset = readModifiedUnit(at, DateUnit::Week, next); next > at) {
        const int behind = m_text.skip(m_text.isMark(next, u',') ? next + 1 : next, WordKind::On);
        if (const auto *weekday = m_text.sense(behind, WordKind::Weekday))
            return DayRead { .day = weekdayOfWeek(m_origin.today, weekday->value, offset),
                .next = behind + weekday->count };
        if (offset != 0)
            return DayRead { .day = m_origin.today + weeks { offset }, .next = next };
        return std::nullopt;
    }
    if (const int offset = readModifiedUnit(at, DateUnit::Day, next); next > at && offset == 1)
        return DayRead { .day = m_origin.today + days { 1 }, .next = next };
    if (const int offset = readModifiedUnit(at, DateUnit::Month, next); next > at && offset != 0)
        return DayRead { .day = monthsLater(m_origin.today, months { offset }), .next = next };
    if (const int offset = readModifiedUnit(at, DateUnit::Year, next); next > at && offset != 0)
        return DayRead { .day = monthsLater(m_origin.today, months { 12 * offset }), .next = next };
    return std::nullopt;
}

DayReader::Days DayReader::readWeekend(int at) const
{
    const auto *next = m_text.sense(at, WordKind::Next);
    const auto *near = m_text.sense(at, WordKind::This);
    const auto *last = m_text.sense(at, WordKind::Last);
    const int name = at + (next ? next->count : near ? near->count : last ? last->count : 0);
    const auto *weekend = m_text.sense(name, WordKind::Weekend);
    if (!weekend)
        return std::nullopt;
    int end = name + weekend->count;
    if (last && !next)
        return DayRead { .day = weekdayOfWeek(m_origin.today, kSaturday, -1), .next = end };
    const auto *behind = next ? nullptr : m_text.sense(end, WordKind::Next);
    if (behind && behind->has(Behind)) {
        next = behind;
        end += behind->count;
    }
    // A bare "weekend" says what kind of thing it is as often as when.
    if (!next && !near && !m_text.isBehind(at, WordKind::DayOf) && !m_text.isBehind(at, WordKind::On))
        return std::nullopt;
    const local_days saturday = weekdayOfWeek(m_origin.today, kSaturday, next ? 1 : 0);
    return DayRead { .day = std::max(saturday, m_origin.today), .next = end };
}

/// "end of next month", "fine mese", "fine maggio".
DayReader::Days DayReader::readEndOf(int at) const
{
    const auto lastOf = [](year_month month) { return local_days { month / std::chrono::last }; };
    if (const auto *whole = m_text.sense(at, WordKind::EndOfUnit)) {
        const year_month month = monthOf(m_origin.today);
        const bool isYear = whole->value == static_cast<int>(DateUnit::Year);
        return DayRead { .day = lastOf(isYear ? month.year() / December : month), .next = at + whole->count };
    }
    const auto *end = m_text.sense(at, WordKind::EndOf);
    if (!end)
        return std::nullopt;
    const bool isEnd = end->value == 1;
    int body = m_text.skip(at + end->count, WordKind::Article);
    if (const auto *name = m_text.sense(body, WordKind::Month)) {
        int next = body + name->count;
        const auto year = yearAt(next, next);
        const auto first = firstOfMonth(m_origin.today, name->value, year);
        return first ? Days { DayRead { .day = isEnd ? lastOf(monthOf(*first)) : *first, .next = next } }
                     : std::nullopt;
    }
    for (const DateUnit unit : { DateUnit::Month, DateUnit::Year }) {
        int next = body;
        int offset = readModifiedUnit(body, unit, next);
        if (next == body) {
            const auto *plain = m_text.sense(body, WordKind::Unit);
            if (!plain || plain->value != static_cast<int>(unit) || plain->has(Ambiguous))
                continue;
            next = body + plain->count;
            // The beginning of this month is over.
            offset = isEnd ? 0 : 1;
        }
        const year_month month = monthOf(m_origin.today);
        if (unit == DateUnit::Month)
            return DayRead { .day
                = isEnd ? lastOf(month + months { offset }) : local_days { (month + months { offset }) / 1 },
                .next = next };
        const year year = month.year() + years { offset };
        return DayRead { .day = isEnd ? lastOf(year / December) : local_days { year / January / 1 }, .next = next };
    }
    return std::nullopt;
}

/// "the morning of the 5th", "la sera di venerdì".
DayReader::Days DayReader::readPartOf(int at)
{
    const auto *part = m_text.sense(at, WordKind::DayPartWord);
    const int next = part ? m_text.skip(at + part->count, WordKind::Of) : at;
    if (!part || next == at + part->count || m_depth > 0)
        return std::nullopt;
    ++m_depth;
    auto day = DayReader(*this).read(at + part->count, m_anchor);
    --m_depth;
    if (!day || day->part || day->instant || day->last)
        return std::nullopt;
    day->part = partOf(*part);
    return day;
}

bool DayReader::isClock(int at) const
{
    const auto time = readTime(m_text, at, true);
    return time.has_value();
}

/// A full stop behind an abbreviation, where more follows.
int DayReader::skipStop(int at) const
{
    return m_text.isGluedMark(at, u'.') ? at + 1 : at;
}

} // namespace mintaro
