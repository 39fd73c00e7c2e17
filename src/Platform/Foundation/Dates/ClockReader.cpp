#include "Platform/Foundation/Dates/ClockReader.h"

#include "Platform/Foundation/Dates/LengthReader.h"

namespace mintaro {

namespace {

constexpr int kMinutesOfHour = 60;
constexpr int kHoursOfDay = 24;
constexpr int kNoon = 12;

/// How sure it is that a time is meant.
enum class Evidence {
    Number, ///< a bare number: only company makes a time of it
    Dotted, ///< "3.30", which may be a price
    Sure,
};

/// What stands before a time.
enum class Anchor {
    None,
    Day, ///< a day
    Article, ///< "le", or "about"
    At,
    RangeStart,
    RangeEnd,
};

bool isFirm(Anchor anchor)
{
    return anchor >= Anchor::At;
}

struct ClockRead
{
    WrittenTime clock;
    Evidence evidence;
    int next;
    bool isNamed = false; ///< noon or midnight
};

DayPart partOf(const DateText::Sense &sense)
{
    return static_cast<DayPart>(sense.value);
}

/// The hour with what minutes are written next to it.
std::optional<ClockRead> readDigits(const DateText &text, int at, Anchor anchor)
{
    const DateToken &first = text[at];
    ClockRead read { {}, Evidence::Number, at + 1 };
    const bool isFourDigits
        = first.length == 4 && first.value / 100 < kHoursOfDay && first.value % 100 < kMinutesOfHour;
    const bool isNamed
        = text.sense(at + 1, WordKind::HourName) || (text.isGlued(at + 1) && text.sense(at + 1, WordKind::Meridiem));
    if (isFourDigits && (isFirm(anchor) || isNamed)) {
        read.clock = { .hour = first.value / 100, .minute = first.value % 100, .is24Hour = true };
        read.next = text.skip(at + 1, WordKind::HourName);
        return read;
    }
    if (first.length > 2 || first.value > kHoursOfDay)
        return std::nullopt;
    const bool isPadded = first.length == 2 && first.value < 10;
    read.clock.hour = first.value;
    read.clock.is24Hour = isPadded || first.value > kNoon || first.value == 0;
    read.clock.isOpen = !read.clock.is24Hour;
    const int mark = at + 1;
    const bool isColon = text.isGluedMark(mark, u':');
    const bool isComma = anchor != Anchor::None && text.language().decimalComma && text.isGluedMark(mark, u',');
    const bool isLetter = text.isGlued(mark) && text[mark].isLetter(u'h');
    if (!isColon && !isComma && !isLetter && !text.isGluedMark(mark, u'.'))
        return read;
    if (!text.isGluedNumber(mark + 1) || text[mark + 1].length != 2 || text[mark + 1].value >= kMinutesOfHour
        || (isLetter && anchor == Anchor::None))
        return read;
    read.clock.minute = text[mark + 1].value;
    read.evidence = isColon ? Evidence::Sure : Evidence::Dotted;
    read.next = mark + 2;
    if (isColon && text.isGluedMark(mark + 2, u':') && text.isGluedNumber(mark + 3) && text[mark + 3].length == 2
        && text[mark + 3].value < kMinutesOfHour) {
        read.clock.second = text[mark + 3].value;
        // Whoever writes seconds copies a clock.
        read.clock.isOpen = false;
        read.clock.is24Hour = true;
        read.next = mark + 4;
    }
    if (read.clock.hour == kHoursOfDay && read.clock.minute + read.clock.second > 0)
        return std::nullopt;
    return read;
}

std::optional<ClockRead> readHour(const DateText &text, int at, Anchor anchor)
{
    if (text.isNumber(at) && text[at].value >= 0)
        return readDigits(text, at, anchor);
    const auto number = readNumber(text, at, false);
    if (!number || number->value > kHoursOfDay)
        return std::nullopt;
    WrittenTime clock { .hour = number->value };
    clock.is24Hour = number->value > kNoon || number->value == 0;
    clock.isOpen = !clock.is24Hour;
    ClockRead read { clock, Evidence::Number, number->next };
    // "seven thirty"
    const auto minutes
        = isFirm(anchor) && !text.isNumber(read.next) ? readNumber(text, read.next, false) : std::nullopt;
    if (minutes && minutes->value >= kNoon - 2 && minutes->value < kMinutesOfHour) {
        read.clock.minute = minutes->value;
        read.next = minutes->next;
    }
    return read;
}

/// "e mezza", "e venti", "meno dieci" behind an hour.
void readFraction(const DateText &text, ClockRead &read, Anchor anchor)
{
    if (const auto *fraction = text.sense(read.next, WordKind::FractionAfter)) {
        read.clock.minute = fraction->value;
        read.next += fraction->count;
        if (anchor != Anchor::None)
            read.evidence = Evidence::Sure;
        return;
    }
    if (!isFirm(anchor))
        return;
    const bool isMinus = text.sense(read.next, WordKind::Minus) != nullptr;
    const int behind = text.skip(read.next, isMinus ? WordKind::Minus : WordKind::And);
    if (behind == read.next || (!isMinus && text.language().monthBeforeDay))
        return;
    const auto minutes = readNumber(text, behind, false);
    if (!minutes || minutes->value < 5 || minutes->value >= kMinutesOfHour || minutes->value % 5 != 0
        || isCounted(text, minutes->next) || text.isGluedMark(minutes->next, u':')
        || text.isGluedMark(minutes->next, u'.'))
        return;
    read.clock.minute = isMinus ? -minutes->value : minutes->value;
    read.next = minutes->next;
}

void setPart(ClockRead &read, DayPart part, int next)
{
    if (read.clock.hour > 0 && read.clock.hour <= kNoon && !read.clock.isMidnight) {
        read.clock.part = part;
        read.clock.isOpen = read.clock.is24Hour = false;
    }
    read.evidence = Evidence::Sure;
    read.next = next;
}

/// "pm", "o'clock", "in the morning".
void readHalf(const DateText &text, ClockRead &read, Anchor anchor)
{
    if (const auto *oclock = text.sense(read.next, WordKind::OClock)) {
        read.next += oclock->count;
        read.evidence = Evidence::Sure;
    }
    if (const auto *half = text.sense(read.next, WordKind::Meridiem)) {
        setPart(read, partOf(*half), read.next + half->count);
        return;
    }
    const auto *letter = text.sense(read.next, WordKind::MeridiemLetter);
    if (letter && text.isGlued(read.next) && text.isNumber(read.next - 1) && text.isOwnLanguage()
        && (read.evidence == Evidence::Sure || isFirm(anchor) || partOf(*letter) == DayPart::Afternoon)) {
        setPart(read, partOf(*letter), read.next + 1);
        return;
    }
    if (const auto *phrase = text.sense(read.next, WordKind::PartPhrase))
        if (read.evidence != Evidence::Number || isFirm(anchor) || !text.isNumber(read.next - 1) || phrase->count > 1)
            setPart(read, partOf(*phrase), read.next + phrase->count);
}

std::optional<ClockRead> readNamed(const DateText &text, int at, Anchor anchor)
{
    // "12 noon" says it twice.
    const int name = text.isNumber(at) && text[at].value == kNoon ? at + 1 : at;
    const auto *noon = text.sense(name, WordKind::Noon);
    const auto *midnight = text.sense(name, WordKind::Midnight);
    if (!noon && !midnight)
        return std::nullopt;
    ClockRead read { {}, Evidence::Sure, name + (noon ? noon : midnight)->count, true };
    read.clock.isMidnight = midnight != nullptr;
    read.clock.hour = midnight ? 0 : kNoon;
    readFraction(text, read, anchor);
    return read;
}

/// "half past eight", "ten to nine".
std::optional<ClockRead> readMinutesFirst(const DateText &text, int at, Anchor anchor)
{
    int minutes = 0;
    int next = at;
    bool needsCompany = false;
    if (const auto *fraction = text.sense(at, WordKind::FractionBefore)) {
        minutes = fraction->value;
        next += fraction->count;
    } else {
        const auto number = readNumber(text, at, false);
        if (!number || number->value < 1 || number->value >= kMinutesOfHour || anchor == Anchor::RangeStart)
            return std::nullopt;
        const bool isPast = text.sense(number->next, WordKind::Past) != nullptr;
        next = text.skip(number->next, isPast ? WordKind::Past : WordKind::ToHour);
        if (next == number->next || (!isPast && number->value % 5 != 0))
            return std::nullopt;
        minutes = isPast ? number->value : -number->value;
        needsCompany = !isFirm(anchor);
    }
    auto read = readHour(text, next, Anchor::At);
    if (!read || read->clock.minute != 0 || read->evidence != Evidence::Number || read->clock.hour > kNoon)
        return std::nullopt;
    read->clock.minute = minutes;
    readHalf(text, *read, Anchor::At);
    // "ten to one he forgets" is a bet.
    const bool isBet = minutes == -10 && read->clock.hour == 1;
    if (needsCompany && read->evidence != Evidence::Sure
        && (text.isNumber(at) || (!text.isEnd(read->next) && (at > 0 || isBet))))
        return std::nullopt;
    read->evidence = Evidence::Sure;
    return read;
}

std::optional<ClockRead> readClock(const DateText &text, int at, Anchor anchor)
{
    if (auto read = readNamed(text, at, anchor))
        return read;
    if (auto read = readMinutesFirst(text, at, anchor))
        return read;
    auto read = readHour(text, at, anchor);
    if (!read)
        return std::nullopt;
    if (read->clock.minute == 0 && read->evidence == Evidence::Number)
        readFraction(text, *read, anchor);
    readHalf(text, *read, anchor);
    return read;
}

struct Lead
{
    bool isAt = false;
    bool isFrom = false;
    bool isBetween = false;
    bool isFromTime = false; ///< "dalle", which only times follow
    bool isMark = false; ///< nothing but "ore"
    bool isAny = false;
    bool isNamedOnly = false; ///< what stands there makes a time of nothing but noon and midnight
    int next;

    [[nodiscard]] Anchor anchor(bool isBesideDay) const
    {
        return isFrom || isBetween ? Anchor::RangeStart
            : isAt                 ? Anchor::At
            : isAny                ? Anchor::Article
            : isBesideDay          ? Anchor::Day
                                   : Anchor::None;
    }
};

/// The connectors before a time.
Lead readLead(const DateText &text, int at)
{
    Lead lead { .next = at };
    constexpr int kMost = 3;
    for (int i = 0; i < kMost; ++i) {
        const auto *from = text.sense(lead.next, WordKind::From);
        const auto *connector = text.sense(lead.next, WordKind::At);
        const auto *mark = text.sense(lead.next, WordKind::HourMark);
        const auto *between = text.sense(lead.next, WordKind::Between);
        const auto *about = text.sense(lead.next, WordKind::About);
        const DateText::Sense *longest = nullptr;
        for (const auto *sense : { from, between, connector, mark, about })
            if (sense && (!longest || sense->count > longest->count))
                longest = sense;
        if (!longest)
            break;
        lead.isMark = longest == mark && !lead.isAny;
        lead.isAny = true;
        lead.isFromTime = lead.isFromTime || (longest == from && from->value == 1);
        lead.isFrom = lead.isFrom || longest == from;
        lead.isBetween = lead.isBetween || longest == between;
        lead.isAt = lead.isAt || (longest == connector && connector->value == 0) || longest == mark || lead.isFromTime;
        lead.isNamedOnly = lead.isNamedOnly || (longest == connector && connector->value == 1);
        lead.next += longest->count;
    }
    return lead;
}

/// Behind "to", a dash, or "and" after "between"; -1 where there is none of them.
int behindSeparator(const DateText &text, int at, const Lead &lead)
{
    const auto *to = lead.isBetween ? text.sense(at, WordKind::And) : text.sense(at, WordKind::To);
    // "lunedi 23 alle 12" is no range, and "alle 10 al 5 giugno" goes on with a day.
    if (to && !lead.isBetween && (to->value == 1 || (!lead.isAny && to->value == 2)))
        return -1;
    if (!to && !text.isDash(at))
        return -1;
    const int next = to ? at + to->count : at + 1;
    const Lead second = readLead(text, next);
    return second.isFrom || second.isBetween ? next : second.next;
}

/// A street, or something counted: not an hour.
bool isNumberOfSomething(const DateText &text, int next)
{
    if (isCounted(text, next))
        return true;
    constexpr int kWordsOfName = 3;
    for (int i = next; i < next + kWordsOfName && text.isWord(i); ++i) {
        if (!text[i].isCapital)
            return false;
        if (i > next && text.sense(i, WordKind::Street))
            return true;
    }
    return false;
}

/// A price, a ratio or an odd: said by a word a little before it.
bool isMeasured(const DateText &text, int at)
{
    for (const char16_t mark : { u'\u20ac', u'$', u'\u00a3', u'#' })
        if (text.isMark(at - 1, mark))
            return true;
    constexpr int kNear = 6;
    for (int i = at - 1; i >= 0 && i >= at - kNear && !text[i + 1].afterLineBreak; --i)
        if (text.sense(i, WordKind::Measure))
            return true;
    return false;
}

/// Something before the number says what it is the number of.
bool isNamedNumber(const DateText &text, int at)
{
    if (isMeasured(text, at))
        return true;
    // "version: 3.30", "p. 3.15", and the second of "exercises 3.15 and 4.20"
    const bool isMarked = text.isMark(at - 1, u':') || text.isMark(at - 1, u'.');
    const bool isSecond = text.isBehind(at, WordKind::And) && text.isNumber(at - 2) && text.isGluedMark(at - 3, u'.');
    return text.isBehind(isSecond ? at - 4 : isMarked ? at - 1 : at, WordKind::NotBefore);
}

bool isSureEnough(const DateText &text, int at, const Lead &lead, const ClockRead &read)
{
    if (read.clock.part)
        return true;
    if (!text.isNumber(lead.next)) {
        // Bare noon and midnight are as often part of a title: "the midnight oil", "Mezzogiorno di fuoco".
        if (lead.isAny || !read.isNamed)
            return true;
        const bool isFirst = at == 0 && !text[at].isCapital && !read.clock.isMidnight;
        const bool isLast = text.isEnd(read.next) && (!text[at].isCapital || text.language().capitalizesDays);
        return (isFirst || isLast) && !text.isBehind(at, WordKind::NameBefore) && !text.isBehind(at, WordKind::Of)
            && !text.isBehind(at, WordKind::Article);
    }
    return !isMeasured(text, at) && !isNumberOfSomething(text, read.next) && !text.isBehind(at, WordKind::In)
        && !(text.isBehind(at, WordKind::Scripture) && read.clock.minute % 5 != 0);
}

bool isAcceptedAlone(const DateText &text, int at, const Lead &lead, const ClockRead &read, bool isBesideDay)
{
    const bool isRound = read.clock.minute % 5 == 0;
    switch (read.evidence) {
    case Evidence::Sure:
        return lead.isAt || isBesideDay || isSureEnough(text, at, lead, read);
    case Evidence::Dotted:
        if (isBesideDay || (lead.isAt && (isRound || !text.language().monthBeforeDay)))
            return isBesideDay || !isNumberOfSomething(text, read.next);
        if (!text.isOwnLanguage() || !text.isNumber(lead.next) || text.decimals() > 1 || isNamedNumber(text, at)
            || isNumberOfSomething(text, read.next))
            return false;
        return text.language().monthBeforeDay ? read.clock.minute % 15 == 0 && read.clock.hour > 0 : isRound;
    case Evidence::Number:
        if (lead.isMark
            && ((!text.isOwnLanguage() && !isBesideDay) || (read.clock.hour == kHoursOfDay && text.isGlued(lead.next))))
            return false;
        // "alle Tre Fontane"
        return lead.isAt && !isNumberOfSomething(text, read.next)
            && !(text.isWord(lead.next) && text[lead.next].isCapital && at > 0);
    }
    return false;
}

bool isAcceptedRange(
    const DateText &text, int at, const Lead &lead, const ClockRead &start, const ClockRead &end, bool isBesideDay)
{
    if (start.evidence == Evidence::Sure || (end.evidence == Evidence::Sure && end.clock.part))
        return true;
    if (lead.isAt || isBesideDay)
        return true;
    // Italian says "dalle 3 alle 5" of times, "da 3 a 5" of all else.
    const bool isQuantity = lead.isFrom && !lead.isFromTime && text.language().plainDayOfMonth;
    if (isNamedNumber(text, at) || isQuantity)
        return false;
    return lead.isFrom || lead.isBetween
        || (text.isOwnLanguage() && (end.evidence == Evidence::Sure || start.evidence == Evidence::Dotted));
}

} // namespace

std::optional<TimeRead> readTime(const DateText &text, int at, bool isBesideDay)
{
    const Lead lead = readLead(text, at);
    auto start = readClock(text, lead.next, lead.anchor(isBesideDay));
    if (!start)
        return std::nullopt;
    const bool isNamed = text.sense(lead.next, WordKind::Noon) || text.sense(lead.next, WordKind::Midnight);
    if (lead.isNamedOnly && !isNamed && !lead.isAt)
        return std::nullopt;
    const int second = behindSeparator(text, start->next, lead);
    if (second > 0) {
        const auto end = readClock(text, second, Anchor::RangeEnd);
        // "dalle 10 alle 12 persone" has no first hour either.
        if (end && start->evidence != Evidence::Sure && end->evidence != Evidence::Sure && !isBesideDay
            && isNumberOfSomething(text, end->next))
            return std::nullopt;
        if (end && text.endsCleanly(end->next) && isAcceptedRange(text, at, lead, *start, *end, isBesideDay))
            return TimeRead { start->clock, end->clock, end->next };
    }
    const bool isHyphenated = text.isDash(start->next) && text.isGluedNumber(start->next + 1);
    if ((!text.endsCleanly(start->next) && !isHyphenated) || lead.isBetween
        || !isAcceptedAlone(text, at, lead, *start, isBesideDay))
        return std::nullopt;
    return TimeRead { start->clock, std::nullopt, start->next };
}

int hourOfDay(const WrittenTime &clock, std::optional<DayPart> part)
{
    if (!clock.isOpen && !clock.part)
        return clock.hour;
    constexpr int kLastAfternoonHour = 7;
    constexpr int kFirstEveningHour = 4;
    constexpr int kFirstNightHour = 6;
    const int hour = clock.hour;
    if (!clock.part && !part)
        return hour <= kLastAfternoonHour ? hour + kNoon : hour;
    switch (clock.part.value_or(part.value_or(DayPart::Morning))) {
    case DayPart::Morning:
        return hour == kNoon && clock.part ? 0 : hour;
    case DayPart::Afternoon:
        return hour == kNoon ? hour : hour + kNoon;
    case DayPart::Evening:
        return hour < kFirstEveningHour && !clock.part ? hour + kHoursOfDay : hour + kNoon;
    case DayPart::Night:
        if (hour < kFirstNightHour)
            return clock.part ? hour : hour + kHoursOfDay;
        return hour + kNoon;
    }
    return hour;
}

} // namespace mintaro
