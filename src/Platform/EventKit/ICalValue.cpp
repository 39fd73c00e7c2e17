#include "Platform/EventKit/ICalValue.h"

#include <QStringDecoder>

#include <algorithm>
#include <array>
#include <cctype>

namespace mintaro {

using namespace std::chrono;

namespace {

constexpr std::array<char16_t, 32> kWindows1252 { 0x20AC, 0x81, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6,
    0x2030, 0x0160, 0x2039, 0x0152, 0x8D, 0x017D, 0x8F, 0x90, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D, 0x017E, 0x0178 };

constexpr days kLongest { 366 * 1'000 };

/// The length of the well-formed sequence of UTF-8 (RFC 3629) at the front; 0 where there is none.
qsizetype sequenceLength(QByteArrayView bytes)
{
    const auto byte = [bytes](qsizetype i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned lead = byte(0);
    if (lead < 0x80)
        return 1;
    const qsizetype length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || length > bytes.size())
        return 0;
    for (qsizetype i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80)
            return 0;
    }
    // Written too long, half a surrogate pair, beyond the last character.
    const unsigned second = byte(1);
    const bool isOdd = (lead == 0xE0 && second < 0xA0) || (lead == 0xED && second > 0x9F)
        || (lead == 0xF0 && second < 0x90) || (lead == 0xF4 && second > 0x8F);
    return isOdd ? 0 : length;
}

QString decodeMixed(QByteArrayView bytes)
{
    QString text;
    qsizetype wellFormed = 0;
    while (wellFormed < bytes.size()) {
        if (const qsizetype length = sequenceLength(bytes.sliced(wellFormed)); length > 0) {
            wellFormed += length;
            continue;
        }
        const auto byte = static_cast<unsigned char>(bytes[wellFormed]);
        text += QString::fromUtf8(bytes.first(wellFormed));
        text += QChar(byte >= 0x80 && byte < 0xA0 ? kWindows1252[byte - 0x80u] : byte);
        bytes = bytes.sliced(wellFormed + 1);
        wellFormed = 0;
    }
    return text + QString::fromUtf8(bytes);
}

int hexDigit(char byte)
{
    const int digit = std::isdigit(static_cast<unsigned char>(byte)) != 0
        ? byte - '0'
        : std::toupper(static_cast<unsigned char>(byte)) - 'A' + 10;
    return digit >= 0 && digit < 16 ? digit : -1;
}

QByteArray decodeQuotedPrintable(QByteArrayView value)
{
    QByteArray bytes;
    for (qsizetype i = 0; i < value.size(); ++i) {
        const bool isEncoded = value[i] == '=' && i + 2 < value.size();
        const int high = isEncoded ? hexDigit(value[i + 1]) : -1;
        const int low = isEncoded ? hexDigit(value[i + 2]) : -1;
        if (high < 0 || low < 0) {
            bytes.append(value[i]);
            continue;
        }
        bytes.append(static_cast<char>(high * 16 + low));
        i += 2;
    }
    return bytes;
}

/// Replaces "lead and a character" as `meaning` says; a null meaning leaves both as they stand.
template <typename Meaning>
QString replaceEscapes(const QString &text, QChar lead, Meaning &&meaning)
{
    if (!text.contains(lead))
        return text;
    QString result;
    result.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool isEscape = text[i] == lead && i + 1 < text.size();
        const QChar character = isEscape ? meaning(text[i + 1]) : QChar();
        result += character.isNull() ? text[i] : character;
        i += character.isNull() ? 0 : 1;
    }
    return result;
}

QChar escapedInText(QChar character)
{
    if (character == u'n' || character == u'N')
        return u'\n';
    return QStringView(u"\\;,:\"").contains(character) ? character : QChar();
}

QChar escapedInParameter(QChar character)
{
    switch (character.unicode()) {
    case u'n':
        return u'\n';
    case u'\'':
        return u'"';
    case u'^':
        return u'^';
    default:
        return {};
    }
}

/// Takes numbers and signs off the front of a value, in small letters or capitals.
class ValueReader
{
public:
    explicit ValueReader(QByteArrayView value)
        : m_rest(withoutBlanks(value))
    {
    }

    [[nodiscard]] bool isAtEnd() const { return m_rest.isEmpty(); }
    [[nodiscard]] bool hasDigit() const { return !isAtEnd() && m_rest.front() >= '0' && m_rest.front() <= '9'; }

    bool take(char capital)
    {
        const bool isNext = !isAtEnd() && capitalOf(m_rest.front()) == capital;
        if (isNext)
            m_rest = m_rest.sliced(1);
        return isNext;
    }

    /// '\0' at the end.
    char takeAny()
    {
        const char byte = isAtEnd() ? '\0' : capitalOf(m_rest.front());
        m_rest = m_rest.sliced(isAtEnd() ? 0 : 1);
        return byte;
    }

    /// -1 where there are fewer digits.
    int takeDigits(int size)
    {
        int number = 0;
        for (int i = 0; i < size; ++i) {
            if (!hasDigit())
                return -1;
            number = number * 10 + (takeAny() - '0');
        }
        return number;
    }

    /// All digits that follow; numbers beyond a billion are a billion.
    std::int64_t takeNumber()
    {
        std::int64_t number = 0;
        while (hasDigit())
            number = std::min<std::int64_t>(number * 10 + (takeAny() - '0'), 1'000'000'000);
        return number;
    }

private:
    static char capitalOf(char byte) { return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 'a' + 'A') : byte; }

    QByteArrayView m_rest;
};

/// "+HHMM", "+HH:MM", "+HH", "+HHMMSS".
std::optional<seconds> takeOffset(ValueReader &reader)
{
    const bool isNegative = reader.take('-');
    if (!isNegative)
        reader.take('+');
    seconds offset { 0 };
    for (const seconds unit : { seconds { hours { 1 } }, seconds { minutes { 1 } }, seconds { 1 } }) {
        const bool isMissing = unit < hours { 1 } && !reader.hasDigit();
        const int number = isMissing ? 0 : reader.takeDigits(2);
        if (number < 0 || number > (unit == hours { 1 } ? 23 : 59))
            return std::nullopt;
        offset += number * unit;
        reader.take(':');
    }
    return isNegative ? -offset : offset;
}

std::optional<local_days> takeDay(ValueReader &reader)
{
    const int y = reader.takeDigits(4);
    reader.take('-');
    const int m = reader.takeDigits(2);
    reader.take('-');
    const int d = reader.takeDigits(2);
    const year_month_day day { year { y }, month { static_cast<unsigned>(m) },
        std::chrono::day { static_cast<unsigned>(d) } };
    if (y < 1 || m < 1 || d < 1 || !day.ok())
        return std::nullopt;
    return local_days { day };
}

std::optional<seconds> takeTimeOfDay(ValueReader &reader)
{
    const int hour = reader.takeDigits(2);
    reader.take(':');
    const int minute = reader.takeDigits(2);
    reader.take(':');
    const int second = reader.hasDigit() ? reader.takeDigits(2) : 0;
    if (reader.take('.') || reader.take(','))
        reader.takeNumber();
    const seconds time { (hour * 60 + minute) * 60 + second };
    // A leap second reads as the one before it (RFC 5545 3.3.12); 24:00 is the end of the day in ISO 8601.
    if (hour < 0 || minute < 0 || minute > 59 || second < 0 || second > 60 || time > days { 1 })
        return std::nullopt;
    return second == 60 ? time - seconds { 1 } : time;
}

} // namespace

QString decodeText(QByteArrayView bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = decoder(bytes);
    if (decoder.hasError())
        text = decodeMixed(bytes);
    const auto isControl
        = [](QChar unit) { return (unit < u' ' && unit != u'\n' && unit != u'\t') || unit == QChar(0x7f); };
    text.removeIf(isControl);
    return text;
}

QString readText(const ICalProperty &property)
{
    const bool isQuotedPrintable
        = property.parameters.size() > 16 && property.parameters.toByteArray().toUpper().contains("QUOTED-PRINTABLE");
    const QString text
        = isQuotedPrintable ? decodeText(decodeQuotedPrintable(property.value)) : decodeText(property.value);
    return replaceEscapes(text, u'\\', escapedInText);
}

QString readParameter(const ICalProperty &property, QByteArrayView name)
{
    const auto value = property.parameter(name);
    return value ? replaceEscapes(decodeText(*value), u'^', escapedInParameter) : QString();
}

std::optional<ICalTime> parseTime(QByteArrayView value)
{
    ValueReader reader(value);
    const auto day = takeDay(reader);
    if (!day)
        return std::nullopt;
    const bool isUtcDay = reader.take('Z');
    if (reader.isAtEnd())
        return ICalTime { *day, true, isUtcDay };
    if (!reader.take('T'))
        reader.take(' ');
    const auto time = takeTimeOfDay(reader);
    if (!time)
        return std::nullopt;
    ICalTime result { *day + *time, false, reader.take('Z') };
    if (!result.isUtc && !reader.isAtEnd()) {
        const auto offset = takeOffset(reader);
        if (!offset)
            return std::nullopt;
        result = { result.reading - *offset, false, true };
    }
    return reader.isAtEnd() ? std::optional(result) : std::nullopt;
}

std::optional<ICalDuration> parseDuration(QByteArrayView value)
{
    ValueReader reader(value);
    ICalDuration result;
    result.isNegative = reader.take('-');
    if (!result.isNegative)
        reader.take('+');
    if (!reader.take('P') || reader.isAtEnd())
        return std::nullopt;
    EventLength &length = result.length;
    while (!reader.isAtEnd()) {
        if (reader.take('T'))
            continue;
        if (!reader.hasDigit())
            return std::nullopt;
        const std::int64_t number = reader.takeNumber();
        switch (reader.takeAny()) {
        case 'W':
            length.nominal += days { 7 * number };
            break;
        case 'D':
            length.nominal += days { number };
            break;
        case 'H':
            length.exact += hours { number };
            break;
        case 'M':
            length.exact += minutes { number };
            break;
        case 'S':
            length.exact += seconds { number };
            break;
        default:
            return std::nullopt;
        }
    }
    if (length.nominal > kLongest || length.exact > kLongest)
        return std::nullopt;
    return result;
}

std::optional<seconds> parseUtcOffset(QByteArrayView value)
{
    ValueReader reader(value);
    const auto offset = takeOffset(reader);
    return reader.isAtEnd() ? offset : std::nullopt;
}

} // namespace mintaro
