#include "Platform/Foundation/URL.h"

#include "Platform/Foundation/UrlCharacters.h"
#include "Platform/Foundation/UrlParts.h"

#include <algorithm>

namespace mintaro {

namespace {

/// RFC 3987 ucschar and iprivate, seen by general category.
bool isInternational(char32_t c)
{
    switch (QChar::category(c)) {
    case QChar::Separator_Space:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
    case QChar::Other_Control:
    case QChar::Other_Surrogate:
    case QChar::Other_NotAssigned:
        return false;
    default:
        return c > 0x7F;
    }
}

bool hasOnlyUrlCharacters(QStringView text)
{
    for (qsizetype i = 0; i < text.size();) {
        const char32_t c = codePointAt(text, i);
        if (!isAsciiUrlCharacter(c) && !isInternational(c))
            return false;
        if (c == U'%' && !isEscapeAt(text, i))
            return false;
        i += unitCount(c);
    }
    return true;
}

bool isScheme(QStringView text)
{
    return !text.isEmpty() && isAsciiLetter(text[0].unicode()) && std::ranges::all_of(text, [](QChar c) {
        return isAsciiLetter(c.unicode()) || isAsciiDigit(c.unicode()) || c == u'+' || c == u'-' || c == u'.';
    });
}

bool isAuthority(QStringView text)
{
    const auto [host, port] = HostAndPort::of(text);
    if (port && !std::ranges::all_of(*port, [](QChar c) { return isAsciiDigit(c.unicode()); }))
        return false;
    const bool isLiteral = host.startsWith(u'[') && host.endsWith(u']') && host.count(u'[') == 1;
    return isLiteral || !(host.contains(u'[') || host.contains(u']'));
}

} // namespace

std::optional<URL> URL::fromString(const QString &text)
{
    if (text.isEmpty() || !hasOnlyUrlCharacters(text))
        return std::nullopt;
    const UrlParts parts = UrlParts::of(text);
    if (parts.scheme && !isScheme(*parts.scheme))
        return std::nullopt;
    if (parts.authority && !isAuthority(*parts.authority))
        return std::nullopt;
    return URL(text);
}

QStringList URL::pathComponents() const
{
    const QStringView path = UrlParts::of(m_text).path;
    QStringList components;
    if (path.startsWith(u'/'))
        components.append(QStringLiteral("/"));
    for (const QStringView part : path.split(u'/', Qt::SkipEmptyParts))
        components.append(withoutEscapes(part));
    return components;
}

QUrl URL::toQUrl() const
{
    return QUrl(m_text, QUrl::TolerantMode);
}

} // namespace mintaro
