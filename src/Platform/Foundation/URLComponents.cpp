#include "Platform/Foundation/URLComponents.h"

#include "Platform/Foundation/UrlParts.h"

#include <QUrl>

namespace mintaro {

namespace {

std::optional<QString> toString(const std::optional<QStringView> &view)
{
    return view ? std::optional(view->toString()) : std::nullopt;
}

QString encoded(const QString &text, const QByteArray &kept)
{
    return QString::fromLatin1(QUrl::toPercentEncoding(text, kept));
}

QStringList rawItems(const std::optional<QString> &query)
{
    return query && !query->isEmpty() ? query->split(u'&') : QStringList();
}

URLComponents::QueryItem decodedItem(const QString &raw)
{
    const qsizetype equals = raw.indexOf(u'=');
    if (equals < 0)
        return { withoutEscapes(raw), std::nullopt };
    return { withoutEscapes(QStringView(raw).first(equals)), withoutEscapes(QStringView(raw).sliced(equals + 1)) };
}

/// "+" is escaped: a form decoder would read it as a space.
QString encodedItem(const URLComponents::QueryItem &item)
{
    const QByteArray kept = QByteArrayLiteral("!$'()*,:@/?");
    const QString name = encoded(item.first, kept);
    return item.second ? name + u'=' + encoded(*item.second, kept + '=') : name;
}

} // namespace

std::optional<URLComponents> URLComponents::fromURL(const URL &url)
{
    if (url.absoluteString().isEmpty())
        return std::nullopt;
    const UrlParts parts = UrlParts::of(url.absoluteString());
    URLComponents components;
    components.m_scheme = toString(parts.scheme);
    components.m_authority = toString(parts.authority);
    components.m_path = parts.path.toString();
    components.m_query = toString(parts.query);
    components.m_fragment = toString(parts.fragment);
    return components;
}

void URLComponents::setScheme(const QString &scheme)
{
    m_scheme = scheme;
}

void URLComponents::setPath(const QString &path)
{
    m_path = encoded(path, QByteArrayLiteral("/!$&'()*+,;=:@"));
}

std::optional<QString> URLComponents::host() const
{
    return m_authority ? std::optional(HostAndPort::of(*m_authority).host.toString()) : std::nullopt;
}

std::vector<URLComponents::QueryItem> URLComponents::queryItems() const
{
    std::vector<QueryItem> items;
    for (const QString &raw : rawItems(m_query))
        items.push_back(decodedItem(raw));
    return items;
}

void URLComponents::setQueryItems(const std::vector<QueryItem> &items)
{
    // An item that stays in its place stays as it was written, too: its escapes may mean something to the server.
    const QStringList before = rawItems(m_query);
    QStringList after;
    for (const QueryItem &item : items) {
        const bool isKept = after.size() < before.size() && decodedItem(before[after.size()]) == item;
        after.append(isKept ? before[after.size()] : encodedItem(item));
    }
    m_query = items.empty() ? std::nullopt : std::optional(after.join(u'&'));
}

std::optional<URL> URLComponents::url() const
{
    QString text;
    if (m_scheme)
        text += *m_scheme + u':';
    if (m_authority)
        text += QStringLiteral("//") + *m_authority;
    if (m_authority && !m_path.isEmpty() && !m_path.startsWith(u'/'))
        return std::nullopt;
    text += m_path;
    if (m_query)
        text += u'?' + *m_query;
    if (m_fragment)
        text += u'#' + *m_fragment;
    return URL::fromString(text);
}

} // namespace mintaro
