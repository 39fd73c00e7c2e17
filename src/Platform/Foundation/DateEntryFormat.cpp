#include "Platform/Foundation/DateEntryFormat.h"

#include <unicode/dtfmtsym.h>
#include <unicode/dtptngen.h>

#include <algorithm>

namespace mintaro {

using namespace std::chrono;

namespace {

constexpr int kLongestNumber = 4;
constexpr int kNoon = 12;
/// Up to here an hour that says no half of the day is in the afternoon.
constexpr int kLastOpenAfternoonHour = 7;

struct Number
{
    int value = 0;
    int digits = 0;
    bool hasLeadingZero = false;
};

/// The numbers of a text, in which nothing but `separators` stands besides. Empty where anything else does.
std::vector<Number> numbersOf(QStringView text, QLatin1String separators)
{
    std::vector<Number> numbers;
    bool isInside = false;
    for (const QChar c : text) {
        const int digit = c.digitValue();
        if (digit >= 0) {
            if (!isInside)
                numbers.push_back({ .hasLeadingZero = digit == 0 });
            Number &number = numbers.back();
            if (++number.digits > kLongestNumber)
                return {};
            number.value = number.value * 10 + digit;
        } else if (!c.isSpace() && !separators.contains(c)) {
            return {};
        }
        isInside = digit >= 0;
    }
    return numbers;
}

/// The year that a number of two digits means, at most 50 years from `shown`.
int wholeYear(int twoDigits, int shown)
{
    constexpr int kCentury = 100;
    int result = shown - shown % kCentury + twoDigits;
    if (result > shown + kCentury / 2)
        result -= kCentury;
    else if (result < shown - kCentury / 2)
        result += kCentury;
    return result;
}

/// 1 to 12 with a half of the day.
int hourOfDay(int hour, bool isAfternoon)
{
    return hour % kNoon + (isAfternoon ? kNoon : 0);
}

std::optional<DateEntryFormat::Part> partOf(QChar letter)
{
    switch (letter.unicode()) {
    case 'd':
        return DateEntryFormat::Part::Day;
    case 'M':
    case 'L':
        return DateEntryFormat::Part::Month;
    case 'y':
        return DateEntryFormat::Part::Year;
    case 'h':
    case 'H':
    case 'k':
    case 'K':
        return DateEntryFormat::Part::Hour;
    case 'm':
        return DateEntryFormat::Part::Minute;
    case 'a':
    case 'b':
    case 'B':
        return DateEntryFormat::Part::DayPeriod;
    default:
        return std::nullopt;
    }
}

QString fromIcu(const icu::UnicodeString &text)
{
    return QString::fromUtf16(text.getBuffer(), text.length());
}

QString bestPattern(const icu::Locale &locale, const char16_t *skeleton, const QString &otherwise)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::DateTimePatternGenerator> generator(
        icu::DateTimePatternGenerator::createInstance(locale, status));
    if (U_FAILURE(status))
        return otherwise;
    const icu::UnicodeString pattern = generator->getBestPattern(icu::UnicodeString(skeleton), status);
    return U_FAILURE(status) ? otherwise : fromIcu(pattern);
}

/// In digits a day is written as in the region, whatever the language: the library knows no English of Italy and would
/// write it as in America. Whatever calendar the region prefers, ours is the Gregorian one.
icu::Locale regionalLocale(const Locale &locale)
{
    icu::Locale result(
        (QLatin1String("und_") + locale.region + QLatin1String("@calendar=gregorian")).toLatin1().constData());
    UErrorCode status = U_ZERO_ERROR;
    result.addLikelySubtags(status);
    return result;
}

/// A day or a month: what is longer than two digits is none.
std::optional<unsigned> shortNumber(const Number &number)
{
    return number.digits <= 2 ? std::optional(static_cast<unsigned>(number.value)) : std::nullopt;
}

/// The order of as many numbers as there are, by the locale's.
std::vector<DateEntryFormat::Part> orderOf(const std::vector<Number> &numbers, std::vector<DateEntryFormat::Part> parts)
{
    using Part = DateEntryFormat::Part;
    if (numbers.size() == 1)
        return { Part::Day };
    if (numbers.size() == 2) {
        std::erase(parts, Part::Year);
        return parts;
    }
    if (numbers.front().digits == kLongestNumber)
        return { Part::Year, Part::Month, Part::Day };
    if (numbers.back().digits == kLongestNumber && parts.front() == Part::Year)
        return { Part::Day, Part::Month, Part::Year };
    return parts;
}

} // namespace

DateEntryFormat::DateEntryFormat(const Locale &locale)
    : m_am(QStringLiteral("AM"))
    , m_pm(QStringLiteral("PM"))
{
    const icu::Locale icuLocale(locale.identifier().toLatin1().constData());
    m_date = layout(bestPattern(regionalLocale(locale), u"yMd", QStringLiteral("y-MM-dd")));
    m_time = layout(bestPattern(icuLocale, u"jmm", QStringLiteral("HH:mm")));
    UErrorCode status = U_ZERO_ERROR;
    const icu::DateFormatSymbols symbols(icuLocale, status);
    int32_t count = 0;
    const icu::UnicodeString *halves = U_SUCCESS(status) ? symbols.getAmPmStrings(count) : nullptr;
    if (count == 2) {
        m_am = fromIcu(halves[0]);
        m_pm = fromIcu(halves[1]);
    }
}

DateEntryFormat::Layout DateEntryFormat::layout(const QString &pattern)
{
    Layout result;
    bool isQuoted = false;
    for (qsizetype at = 0; at < pattern.size();) {
        const QChar c = pattern[at];
        qsizetype end = at + 1;
        if (c == u'\'') {
            isQuoted = !isQuoted;
        } else if (!isQuoted && c.isLetter()) {
            while (end < pattern.size() && pattern[end] == c)
                ++end;
            if (const auto part = partOf(c)) {
                // Days of the same length stand below one another.
                const bool isDayOrMonth = part == Part::Day || part == Part::Month;
                result.pieces.push_back({ .part = part, .digits = isDayOrMonth ? 2 : static_cast<int>(end - at) });
                result.parts.push_back(*part);
                result.isTwelveHour |= c == u'h' || c == u'K';
            }
        } else if (!c.isLetter() && c.category() != QChar::Other_Format) {
            // Blanks that do not break are hard to type and to see.
            result.pieces.push_back({ .part = {}, .literal = c.isSpace() ? QStringLiteral(" ") : QString(c) });
        }
        at = end;
    }
    while (!result.pieces.empty() && !result.pieces.back().part)
        result.pieces.pop_back();
    return result;
}

QString DateEntryFormat::string(year_month_day day) const
{
    QString text;
    for (const Piece &piece : m_date.pieces) {
        int value = static_cast<int>(unsigned { day.day() });
        if (piece.part == Part::Month)
            value = static_cast<int>(unsigned { day.month() });
        else if (piece.part == Part::Year)
            value = int { day.year() };
        text += piece.part ? QStringLiteral("%1").arg(value, piece.digits, 10, QLatin1Char('0')) : piece.literal;
    }
    return text;
}

QString DateEntryFormat::string(ClockReading reading) const
{
    const bool isAfternoon = reading.hour >= kNoon;
    QString text;
    for (const Piece &piece : m_time.pieces) {
        int value = reading.minute;
        if (piece.part == Part::Hour) {
            const int short12 = reading.hour % kNoon == 0 ? kNoon : reading.hour % kNoon;
            value = m_time.isTwelveHour ? short12 : reading.hour;
        }
        if (piece.part == Part::DayPeriod)
            text += isAfternoon ? m_pm : m_am;
        else
            text += piece.part ? QStringLiteral("%1").arg(value, piece.digits, 10, QLatin1Char('0')) : piece.literal;
    }
    return text;
}

std::optional<year_month_day> DateEntryFormat::day(const QString &text, year_month_day shown) const
{
    const std::vector<Number> numbers = numbersOf(text, QLatin1String("./-,"));
    if (numbers.empty() || numbers.size() > 3)
        return std::nullopt;
    const std::vector<Part> order = orderOf(numbers, m_date.parts);
    year y = shown.year();
    unsigned m { shown.month() };
    unsigned d = 0;
    for (std::size_t i = 0; i < numbers.size() && i < order.size(); ++i) {
        const Number &number = numbers[i];
        if (order[i] == Part::Year) {
            if (number.digits == 3 || (number.digits == kLongestNumber && number.value == 0))
                return std::nullopt;
            y = year { number.digits <= 2 ? wholeYear(number.value, int { y }) : number.value };
            continue;
        }
        const auto value = shortNumber(number);
        if (!value)
            return std::nullopt;
        (order[i] == Part::Day ? d : m) = *value;
    }
    const year_month_day result { y, month { m }, std::chrono::day { d } };
    return result.ok() ? std::optional(result) : std::nullopt;
}

std::optional<ClockReading> DateEntryFormat::time(const QString &text) const
{
    const auto lettersOf = [](QStringView words) {
        QString letters;
        std::ranges::copy_if(words, std::back_inserter(letters), [](QChar c) { return c.isLetter(); });
        return letters.toLower();
    };
    const auto lastDigit = std::find_if(text.rbegin(), text.rend(), [](QChar c) { return c.isDigit(); });
    const qsizetype end = text.rend() - lastDigit;
    const QString period = lettersOf(QStringView(text).sliced(end));
    const bool isMorning = period == QLatin1String("a") || period == QLatin1String("am") || period == lettersOf(m_am);
    const bool isAfternoon = period == QLatin1String("p") || period == QLatin1String("pm") || period == lettersOf(m_pm);
    if (!period.isEmpty() && !isMorning && !isAfternoon && period != QLatin1String("h"))
        return std::nullopt;

    const std::vector<Number> numbers = numbersOf(QStringView(text).first(end), QLatin1String(":.,h"));
    if (numbers.empty() || numbers.size() > 2)
        return std::nullopt;
    const Number &first = numbers.front();
    ClockReading reading { first.value, 0 };
    if (numbers.size() == 1 && first.digits > 2)
        reading = { first.value / 100, first.value % 100 };
    else if (first.digits > 2 || (numbers.size() == 2 && numbers[1].digits != 2))
        return std::nullopt;
    else if (numbers.size() == 2)
        reading.minute = numbers[1].value;

    if (isMorning || isAfternoon) {
        if (reading.hour < 1 || reading.hour > kNoon)
            return std::nullopt;
        reading.hour = hourOfDay(reading.hour, isAfternoon);
    } else if (m_time.isTwelveHour && !first.hasLeadingZero && reading.hour <= kLastOpenAfternoonHour) {
        reading.hour += kNoon;
    }
    const bool exists = reading.hour < 24 && reading.minute < 60;
    return exists ? std::optional(reading) : std::nullopt;
}

std::vector<DateEntryFormat::Range> DateEntryFormat::partRanges(QStringView text)
{
    std::vector<Range> ranges;
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (!text[at].isLetterOrNumber())
            continue;
        const bool continues
            = at > 0 && text[at - 1].isLetterOrNumber() && text[at - 1].isDigit() == text[at].isDigit();
        if (!continues)
            ranges.push_back({ at, at });
        ranges.back().end = at + 1;
    }
    return ranges;
}

} // namespace mintaro
