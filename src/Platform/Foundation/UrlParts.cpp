#include "Platform/Foundation/UrlParts.h"

namespace mintaro {

namespace {

/// Cuts `text` at the first of its characters that `isEnd` names and returns what stood before it.
template <typename Predicate>
QStringView takeUntil(QStringView &text, Predicate isEnd)
{
    qsizetype end = 0;
    while (end < text.size() && !isEnd(text[end]))
        ++end;
    const QStringView taken = text.first(end);
    text = text.sliced(end);
    return taken;
}

bool endsAuthority(QChar c)
{
    return c == u'/' || c == u'?' || c == u'#';
}

} // namespace

UrlParts UrlParts::of(QStringView text)
{
    UrlParts parts;
    QStringView rest = text;
    const QStringView front = takeUntil(rest, [](QChar c) { return c == u':' || endsAuthority(c); });
    if (rest.startsWith(u':')) {
        parts.scheme = front;
        rest = rest.sliced(1);
    } else {
        rest = text;
    }
    if (rest.startsWith(u"//")) {
        rest = rest.sliced(2);
        parts.authority = takeUntil(rest, endsAuthority);
    }
    parts.path = takeUntil(rest, [](QChar c) { return c == u'?' || c == u'#'; });
    if (rest.startsWith(u'?')) {
        rest = rest.sliced(1);
        parts.query = takeUntil(rest, [](QChar c) { return c == u'#'; });
    }
    if (rest.startsWith(u'#'))
        parts.fragment = rest.sliced(1);
    return parts;
}

HostAndPort HostAndPort::of(QStringView authority)
{
    const QStringView address = authority.sliced(authority.lastIndexOf(u'@') + 1);
    const qsizetype colon = address.indexOf(u':', address.startsWith(u'[') ? address.indexOf(u']') + 1 : 0);
    if (colon < 0)
        return { address, std::nullopt };
    return { address.first(colon), address.sliced(colon + 1) };
}

QString withoutEscapes(QStringView text)
{
    return QString::fromUtf8(QByteArray::fromPercentEncoding(text.toUtf8()));
}

} // namespace mintaro
