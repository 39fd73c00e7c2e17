#pragma once

#include "Platform/Foundation/URL.h"

#include <QByteArray>
#include <QCoroTask>

#include <chrono>
#include <memory>
#include <optional>

class QNetworkAccessManager;

namespace mintaro {

/// Loads over HTTP and HTTPS, and is the one place where the program touches the network. Nothing is kept between
/// loads: no cookies, no credentials, no cache. The network is set up at the first load. To be used on the main thread.
class URLSession
{
public:
    struct Response
    {
        int statusCode; ///< of the last response, behind the redirects
        QByteArray data;
    };

    /// `userAgent`: what servers are told of the program, name and version. `timeout`: for a load from its beginning to
    /// its end.
    explicit URLSession(QByteArray userAgent, std::chrono::milliseconds timeout = std::chrono::seconds(60));
    /// Loads that are under way give nothing.
    ~URLSession();
    URLSession(const URLSession &) = delete;
    URLSession &operator=(const URLSession &) = delete;

    /// Whatever the server answers with, errors of HTTP included. Nothing where no whole answer came in time, where it
    /// is longer than `sizeLimit` in bytes, after more than 5 redirects or one to another host, port or scheme, and for
    /// a URL of another scheme.
    [[nodiscard]] QCoro::Task<std::optional<Response>> data(const URL &url, qint64 sizeLimit);

private:
    const QByteArray m_userAgent;
    const std::chrono::milliseconds m_timeout;
    std::unique_ptr<QNetworkAccessManager> m_manager;
};

} // namespace mintaro
