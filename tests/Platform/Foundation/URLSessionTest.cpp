#include "Platform/Foundation/URLSession.h"

#include "support/HttpServer.h"

#include <gmock/gmock.h>

#include <QTest>

namespace mintaro {
namespace {

using namespace std::chrono_literals;

constexpr qint64 kLimit = 100'000;

/// "404 none"; empty where nothing came.
QByteArray load(URLSession &session, const QString &address)
{
    const auto response = QCoro::waitFor(session.data(*URL::fromString(address), kLimit));
    return response ? QByteArray::number(response->statusCode) + ' ' + response->data : QByteArray();
}

TEST(URLSessionTest, GivesWholeAnswersWithinItsLimits)
{
    HttpServer server;
    const QByteArray most(kLimit, 'x');
    const auto lengthOf = [](qint64 size) { return "Content-Length: " + QByteArray::number(size) + "\r\n"; };
    const auto redirect = [&](const QString &from, const QByteArray &to) {
        server.answer(from, "302 Found", "Location: " + to + "\r\n" + lengthOf(0), {});
    };
    server.answer(u"/plain"_qs, "body");
    server.answer(u"/most"_qs, "200 OK", lengthOf(kLimit), most);
    server.answer(u"/long"_qs, "200 OK", lengthOf(kLimit + 1), most + 'x');
    server.answer(u"/endless"_qs, "200 OK", {}, most + most);
    server.answer(u"/cut"_qs, "200 OK", lengthOf(9), "body");
    server.answer(u"/noise"_qs, {}, {}, {});
    redirect(u"/moved"_qs, "/plain");
    redirect(u"/loop"_qs, "/loop");
    redirect(u"/file"_qs, "file:///etc/hostname");
    server.keepSilent(u"/silent"_qs);
    URLSession session("mintaro/1.2", 500ms);
    const std::vector<std::pair<QString, QByteArray>> rows {
        { u"/plain"_qs, "200 body" },
        { u"/missing"_qs, "404 none" },
        { u"/most"_qs, "200 " + most },
        { u"/long"_qs, {} },
        { u"/endless"_qs, {} },
        { u"/cut"_qs, {} },
        { u"/noise"_qs, {} },
        { u"/moved"_qs, "200 body" },
        { u"/loop"_qs, {} },
        { u"/file"_qs, {} },
        { u"/silent"_qs, {} },
    };
    for (const auto &[path, answer] : rows)
        EXPECT_EQ(load(session, server.base() + path).left(200), answer.left(200)) << path.toStdString();
    EXPECT_EQ(server.requested.count(u"/loop"_qs), 6);
    EXPECT_EQ(load(session, u"file:///etc/hostname"_qs), QByteArray());
    EXPECT_EQ(load(session, u"https://"_qs), QByteArray());
}

TEST(URLSessionTest, TellsServersNothingButItsName)
{
    HttpServer server;
    server.answer(u"/"_qs, "200 OK", "Set-Cookie: id=1\r\n", "body");
    URLSession session("mintaro/1.2");
    EXPECT_EQ(load(session, server.base() + u'/'), "200 body");
    EXPECT_EQ(load(session, server.base() + u'/'), "200 body");
    QByteArray headers = server.lastRequest.split('\n').mid(1).join('\n');
    headers.replace("Host: " + server.base().section(u'/', 2).toUtf8(), "Host: there").replace("\r", "");
    EXPECT_EQ(headers.trimmed().toStdString(),
        "Host: there\nUser-Agent: mintaro/1.2\nAccept-Encoding: identity\nAccept-Language: *\n"
        "Connection: Keep-Alive");
}

TEST(URLSessionTest, ALoadEndsWithTheSession)
{
    HttpServer server;
    server.keepSilent(u"/silent"_qs);
    auto session = std::make_unique<URLSession>("mintaro/1.2");
    bool isOver = false;
    auto load = [&]() -> QCoro::Task<> {
        const auto response = co_await session->data(*URL::fromString(server.base() + u"/silent"_qs), kLimit);
        isOver = !response;
    };
    const auto task = load();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !server.requested.isEmpty(); }));
    session.reset();
    EXPECT_TRUE(QTest::qWaitFor([&] { return isOver; }));
}

} // namespace
} // namespace mintaro
