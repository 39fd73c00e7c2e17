#pragma once

#include "Platform/Foundation/Actor.h"
#include "Platform/Foundation/URL.h"
#include "Platform/Foundation/URLSession.h"

#include <QCache>
#include <QFuture>
#include <QHash>
#include <QImage>
#include <QObject>
#include <QPromise>

#include <memory>

namespace mintaro {

/// Gets the icons of web sites from an icon service and keeps the 200 that were used last, in memory only. The service
/// learns the host's name and nothing else, and is asked once for callers at the same time; a failure is not
/// remembered. To be used on the main thread; pictures are unpacked on another.
class FaviconService : public QObject
{
    Q_OBJECT

public:
    /// `service`: the address that "/ip3/HOST.ico" follows; without one there are no icons. `session` must outlive the
    /// object.
    FaviconService(URLSession &session, QString service);
    ~FaviconService() override;

    /// 16 by 16 points; null where there is none. Hosts that are nobody else's business are not asked for: addresses
    /// in numbers, names without a dot, and those outside the public DNS.
    [[nodiscard]] QCoro::Task<QImage> favicon(const URL &url);

private:
    /// Begins it where nobody asked for the host yet.
    [[nodiscard]] QFuture<QImage> loading(const QString &host);
    QCoro::Task<> load(QString host, QPromise<QImage> promise);
    [[nodiscard]] QCoro::Task<QImage> fetchFavicon(const QString &host);

    URLSession &m_session;
    const QString m_service;
    QCache<QString, QImage> m_cache;
    /// By the host in lower case, as in the cache.
    QHash<QString, QFuture<QImage>> m_inFlight;
    /// Made at the first picture.
    std::unique_ptr<Actor> m_decoder;
};

} // namespace mintaro
