#include "Platform/Foundation/URLSession.h"

#include <QCoroFuture>
#include <QDeadlineTimer>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QPointer>
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
    // Where Qt 6.4 follows redirects itself, it asks twice at times: what has made the request before, on Qt's thread,
    // may still be there to hear that the next one is to begin.
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    for (const auto attribute : { QNetworkRequest::CookieLoadControlAttribute,
             QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::AuthenticationReuseAttribute })
        request.setAttribute(attribute, QNetworkRequest::Manual);
    return request;
}

struct Answer
{
    std::optional<URLSession::Response> response;
    QUrl redirect; ///< empty where it is none
};

Answer answer(QNetworkReply &reply, qint64 sizeLimit)
{
    const auto error = reply.error();
    // The lower errors are of the network, the others say what the server answered.
    const bool isAnswered = error == QNetworkReply::NoError || error >= QNetworkReply::ContentAccessDenied;
    const QVariant status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute);
    if (!isAnswered || !status.isValid() || reply.bytesAvailable() > sizeLimit)
        return {};
    return { URLSession::Response { status.toInt(), reply.readAll() },
        reply.attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl() };
}

QFuture<Answer> ask(
    QNetworkAccessManager &manager, const QNetworkRequest &request, qint64 sizeLimit, std::chrono::milliseconds timeout)
{
    QNetworkReply *const reply = manager.get(request);
    const auto checkSize = [reply, sizeLimit] {
        const qint64 told = reply->header(QNetworkRequest::ContentLengthHeader).toLongLong();
        if (std::max(told, reply->bytesAvailable()) > sizeLimit)
            reply->abort();
    };
    QObject::connect(reply, &QNetworkReply::metaDataChanged, reply, checkSize);
    QObject::connect(reply, &QNetworkReply::readyRead, reply, checkSize);
    QTimer::singleShot(timeout, reply, &QNetworkReply::abort);
    // Not the signal itself is waited for: it comes to nobody once the session is gone.
    const auto promise = std::make_shared<QPromise<Answer>>();
    promise->start();
    QObject::connect(reply, &QNetworkReply::finished, reply, [reply, promise, sizeLimit] {
        promise->addResult(answer(*reply, sizeLimit));
        promise->finish();
        reply->deleteLater();
    });
    return promise->future();
}

bool isSameOrigin(const QUrl &a, const QUrl &b)
{
    return a.scheme() == b.scheme() && a.host() == b.host() && a.port() == b.port();
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
    QUrl address = url.toQUrl();
    // The network classes of Qt would read files, too.
    if (address.host().isEmpty()
        || (address.scheme() != QLatin1String("https") && address.scheme() != QLatin1String("http")))
        co_return std::nullopt;
    if (!m_manager)
        m_manager = std::make_unique<QNetworkAccessManager>();
    const QPointer<QNetworkAccessManager> manager(m_manager.get());
    const QByteArray userAgent = m_userAgent;
    const QDeadlineTimer deadline(m_timeout);
    for (int redirects = 0; manager && redirects <= kMostRedirects; ++redirects) {
        const std::chrono::milliseconds timeout(deadline.remainingTime());
        const Answer answer = co_await ask(*manager, request(address, userAgent), sizeLimit, timeout);
        if (answer.redirect.isEmpty())
            co_return answer.response;
        // Nobody is asked but who was named.
        const QUrl next = address.resolved(answer.redirect);
        if (!isSameOrigin(next, address))
            break;
        address = next;
    }
    co_return std::nullopt;
}

} // namespace mintaro
