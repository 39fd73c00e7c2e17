#include "Platform/Foundation/URLSession.h"

#include <QCoroFuture>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QPromise>
#include <QTimer>

namespace mintaro {

namespace {

constexpr int kMostRedirects = 5;

QNetworkRequest request(const QUrl &url, const QByteArray &userAgent)
{
    QNetworkRequest request(url);
    request.setRawHeader("User-Agent", userAgent);
    // What comes packed could be far longer than what was counted.
    request.setRawHeader("Accept-Encoding", "identity");
    // Qt would tell the user's.
    request.setRawHeader("Accept-Language", "*");
    // Nobody is asked but who was named.
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::SameOriginRedirectPolicy);
    request.setMaximumRedirectsAllowed(kMostRedirects);
    for (const auto attribute : { QNetworkRequest::CookieLoadControlAttribute,
             QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::AuthenticationReuseAttribute })
        request.setAttribute(attribute, QNetworkRequest::Manual);
    return request;
}

using Answer = std::optional<URLSession::Response>;

Answer answer(QNetworkReply &reply, qint64 sizeLimit)
{
    const auto error = reply.error();
    // The lower errors are of the network, the others say what the server answered; but for a redirect to a scheme
    // that is not followed.
    const bool isAnswered = error == QNetworkReply::NoError
        || (error >= QNetworkReply::ContentAccessDenied && error != QNetworkReply::ProtocolUnknownError);
    const QVariant status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute);
    if (!isAnswered || !status.isValid() || reply.bytesAvailable() > sizeLimit)
        return std::nullopt;
    return URLSession::Response { status.toInt(), reply.readAll() };
}

} // namespace

URLSession::URLSession(QByteArray userAgent, std::chrono::milliseconds timeout)
    : m_userAgent(std::move(userAgent))
    , m_timeout(timeout)
{
}

URLSession::~URLSession()
{
    if (!m_manager)
        return;
    for (QNetworkReply *const reply : m_manager->findChildren<QNetworkReply *>())
        reply->abort();
}

QCoro::Task<std::optional<URLSession::Response>> URLSession::data(const URL &url, qint64 sizeLimit)
{
    const QUrl address = url.toQUrl();
    // The network classes of Qt would read files, too.
    if (address.host().isEmpty()
        || (address.scheme() != QLatin1String("https") && address.scheme() != QLatin1String("http")))
        co_return std::nullopt;
    if (!m_manager)
        m_manager = std::make_unique<QNetworkAccessManager>();
    QNetworkReply *const reply = m_manager->get(request(address, m_userAgent));
    const auto checkSize = [reply, sizeLimit] {
        const qint64 told = reply->header(QNetworkRequest::ContentLengthHeader).toLongLong();
        if (std::max(told, reply->bytesAvailable()) > sizeLimit)
            reply->abort();
    };
    QObject::connect(reply, &QNetworkReply::metaDataChanged, reply, checkSize);
    QObject::connect(reply, &QNetworkReply::readyRead, reply, checkSize);
    QTimer::singleShot(m_timeout, reply, &QNetworkReply::abort);
    // Not the signal itself is waited for: it comes to nobody once the session is gone.
    const auto promise = std::make_shared<QPromise<Answer>>();
    promise->start();
    QObject::connect(reply, &QNetworkReply::finished, reply, [reply, promise, sizeLimit] {
        promise->addResult(answer(*reply, sizeLimit));
        promise->finish();
        reply->deleteLater();
    });
    co_return co_await promise->future();
}

} // namespace mintaro
