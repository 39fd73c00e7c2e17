#include "Services/FaviconService.h"

#include "Platform/Foundation/BareHost.h"
#include "Services/IconImage.h"

#include <QCoroFuture>
#include <QPointer>

namespace mintaro {

namespace {

constexpr qsizetype kMostIcons = 200;
constexpr qint64 kMostBytes = 1 << 20;
constexpr int kFound = 200; // RFC 9110, 15.3.1

/// In lower case and punycode; empty for a host that is not asked for.
QString publicHost(const URL &url)
{
    const QString host = url.toQUrl().host(QUrl::FullyEncoded).toLower();
    // Known as endings, but their names are for one's home and one's eyes.
    const bool isPrivate = host.endsWith(QLatin1String(".arpa")) || host.endsWith(QLatin1String(".onion"));
    return hasKnownTopLevelDomain(host) && !isPrivate ? host : QString();
}

} // namespace

FaviconService::FaviconService(URLSession &session, QString service)
    : m_session(session)
    , m_service(std::move(service))
    , m_cache(kMostIcons)
{
}

FaviconService::~FaviconService() = default;

QCoro::Task<QImage> FaviconService::favicon(const URL &url)
{
    const QString host = publicHost(url);
    if (host.isEmpty())
        co_return QImage();
    if (const QImage *const known = m_cache.object(host))
        co_return *known;
    co_return co_await loading(host);
}

QFuture<QImage> FaviconService::loading(const QString &host)
{
    if (const auto known = m_inFlight.constFind(host); known != m_inFlight.constEnd())
        return *known;
    QPromise<QImage> promise;
    promise.start();
    const QFuture<QImage> future = promise.future();
    m_inFlight.insert(host, future);
    load(host, std::move(promise));
    return future;
}

QCoro::Task<> FaviconService::load(QString host, QPromise<QImage> promise)
{
    const QPointer<FaviconService> self(this);
    const QImage icon = co_await fetchFavicon(host);
    if (self) {
        if (!icon.isNull())
            m_cache.insert(host, new QImage(icon));
        m_inFlight.remove(host);
    }
    promise.addResult(icon);
    promise.finish();
}

QCoro::Task<QImage> FaviconService::fetchFavicon(const QString &host)
{
    const QPointer<FaviconService> self(this);
    const auto address = URL::fromString(m_service + QLatin1String("/ip3/") + host + QLatin1String(".ico"));
    if (!address)
        co_return QImage();
    const auto response = co_await m_session.data(*address, kMostBytes);
    if (!self || !response || response->statusCode != kFound)
        co_return QImage();
    if (!m_decoder)
        m_decoder = std::make_unique<Actor>(QStringLiteral("Icons"));
    const auto decode = [data = response->data] { return iconImage(data); };
    co_return co_await m_decoder->perform(decode);
}

} // namespace mintaro
