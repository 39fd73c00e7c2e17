#include "Platform/EventKit/ContentLines.h"

#include <QStringDecoder>

#include <algorithm>
#include <array>
#include <cctype>
#include <cstring>

namespace mintaro {

namespace {

constexpr char kNoSeparator = '\0';
/// What of a line is looked at to tell what it is.
constexpr qsizetype kLongestHead = 200;

/// What programs that do not write names in capitals may begin a line with.
constexpr std::array<std::string_view, 54> kNames { "ACTION", "ATTACH", "ATTENDEE", "BEGIN", "CALSCALE", "CATEGORIES",
    "CLASS", "COLOR", "COMMENT", "COMPLETED", "CONFERENCE", "CONTACT", "CREATED", "DESCRIPTION", "DTEND", "DTSTAMP",
    "DTSTART", "DUE", "DURATION", "END", "EXDATE", "EXRULE", "FREEBUSY", "GEO", "IMAGE", "LAST-MODIFIED", "LOCATION",
    "METHOD", "NAME", "ORGANIZER", "PERCENT-COMPLETE", "PRIORITY", "PRODID", "RDATE", "RECURRENCE-ID", "RELATED-TO",
    "REPEAT", "REQUEST-STATUS", "RESOURCES", "RRULE", "SEQUENCE", "SOURCE", "STATUS", "SUMMARY", "TRANSP", "TRIGGER",
    "TZID", "TZNAME", "TZOFFSETFROM", "TZOFFSETTO", "TZURL", "UID", "URL", "VERSION" };
static_assert(std::is_sorted(kNames.begin(), kNames.end()));

QStringDecoder::Encoding encodingOf(const QByteArray &text)
{
    // Without a mark, every other byte of the plain letters that a calendar begins with tells.
    const auto alternates = [&text](qsizetype letter) {
        return text.size() >= 4 && text[letter] != '\0' && text[letter + 2] != '\0' && text[1 - letter] == '\0'
            && text[3 - letter] == '\0';
    };
    if (text.startsWith("\xFF\xFE") || alternates(0))
        return QStringDecoder::Utf16LE;
    if (text.startsWith("\xFE\xFF") || alternates(1))
        return QStringDecoder::Utf16BE;
    return QStringDecoder::Utf8;
}

bool isBlank(char byte)
{
    return byte == ' ' || byte == '\t';
}

bool isNameByte(char byte)
{
    return std::isalnum(static_cast<unsigned char>(byte)) != 0 || byte == '-' || byte == '_' || byte == '.';
}

/// Whether the line is meant for a line of its own, where it could go on with the text of the one before.
bool beginsProperty(QByteArrayView line)
{
    const auto nameEnd = std::find_if_not(line.begin(), line.end(), isNameByte);
    if (nameEnd == line.begin() || nameEnd == line.end() || (*nameEnd != ':' && *nameEnd != ';'))
        return false;
    const std::string_view name(line.data(), static_cast<std::size_t>(nameEnd - line.begin()));
    const QByteArrayView rest = line.sliced(nameEnd - line.begin() + 1);
    std::string capitals(name);
    std::transform(name.begin(), name.end(), capitals.begin(), [](unsigned char c) { return std::toupper(c); });
    const bool isCapital = name == capitals;
    const bool looksLikeProse = rest.startsWith(' ') || rest.startsWith("//");
    if (capitals.starts_with("X-") || std::binary_search(kNames.begin(), kNames.end(), std::string_view(capitals)))
        return isCapital || !looksLikeProse;
    return isCapital && !looksLikeProse;
}

/// Whether the line holds prose, which people break where they like.
bool holdsProse(QByteArrayView line)
{
    constexpr std::array<QByteArrayView, 6> names { "DESCRIPTION", "SUMMARY", "LOCATION", "COMMENT", "CONTACT", "X-" };
    return std::any_of(names.begin(), names.end(), [line](QByteArrayView name) {
        return line.size() > name.size() && qstrnicmp(line.data(), name.data(), static_cast<size_t>(name.size())) == 0;
    });
}

/// Whether the value is one of vCalendar 1.0 that a "=" at the end of a line breaks.
bool isQuotedPrintable(QByteArrayView line)
{
    const QByteArrayView head = line.first(std::min(line.size(), kLongestHead));
    return head.first(std::max<qsizetype>(head.indexOf(':'), 0)).toByteArray().toUpper().contains("QUOTED-PRINTABLE");
}

} // namespace

QByteArray plainText(const QByteArray &text)
{
    QByteArray plain = text;
    if (const auto encoding = encodingOf(text); encoding != QStringDecoder::Utf8)
        plain = QString(QStringDecoder(encoding)(text)).toUtf8();
    if (plain.startsWith("\xEF\xBB\xBF"))
        plain.remove(0, 3);
    if (plain.contains('\0'))
        plain.replace('\0', QByteArray());
    return plain;
}

ContentLines::ContentLines(const QByteArray &text)
    : m_text(plainText(text))
{
    if (encodingOf(text) == QStringDecoder::Utf8 && text.contains('\0'))
        m_complaints.append(QStringLiteral("NUL bytes, left out"));
    m_at = m_text.data();
    m_end = m_at + m_text.size();
    m_lineFeed = m_at;
}

/// The bytes up to the next line break, and passes that and all that follow at once.
ContentLines::Span ContentLines::takePhysical()
{
    const auto find = [](char *begin, char *end, char byte) {
        auto *found = static_cast<char *>(std::memchr(begin, byte, static_cast<std::size_t>(end - begin)));
        return found ? found : end;
    };
    // Looked for once: a text may have carriage returns alone.
    if (m_lineFeed <= m_at)
        m_lineFeed = find(m_at, m_end, '\n');
    const Span line { m_at, find(m_at, m_lineFeed, '\r') };
    m_endsInLine = line.end == m_end;
    m_at = std::find_if_not(line.end, m_end, [](char byte) { return byte == '\n' || byte == '\r'; });
    return line;
}

void ContentLines::append(Span &line, char separator)
{
    const Span more = takePhysical();
    if (separator != kNoSeparator)
        *line.end++ = separator;
    std::memmove(line.end, more.begin, static_cast<std::size_t>(more.end - more.begin));
    line.end += more.end - more.begin;
}

std::optional<ContentLines::Line> ContentLines::next()
{
    Span line { nullptr, nullptr };
    std::uint32_t begin = 0;
    do {
        if (m_at == m_end)
            return std::nullopt;
        begin = position();
        line = takePhysical();
    } while (line.begin == line.end);

    const auto text = [&line] { return QByteArrayView(line.begin, line.end); };
    const auto rest = [this] { return QByteArrayView(m_at, std::min(m_end, m_at + kLongestHead)); };
    std::optional<bool> isSoftlyBroken;
    bool wasBroken = false;
    while (m_at != m_end) {
        const bool endsSoftly = text().endsWith('=');
        if (endsSoftly && !isSoftlyBroken)
            isSoftlyBroken = isQuotedPrintable(text());
        if (endsSoftly && *isSoftlyBroken) {
            --line.end;
            append(line, kNoSeparator);
        } else if (isBlank(*m_at)) {
            ++m_at;
            append(line, kNoSeparator);
        } else if (holdsProse(text()) && !beginsProperty(rest())) {
            wasBroken = true;
            append(line, '\n');
        } else {
            break;
        }
    }
    return Line { text(), { begin, position() }, wasBroken, m_endsInLine };
}

} // namespace mintaro
