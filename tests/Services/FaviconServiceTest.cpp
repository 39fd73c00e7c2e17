#include "Services/FaviconService.h"

#include "Services/IconImage.h"
#include "support/HttpServer.h"

#include <gmock/gmock.h>

#include <QBuffer>
#include <QTest>
#include <QtEndian>

namespace mintaro {
namespace {

using testing::ElementsAre;

QByteArray picture(const QSize &size, const QColor &color, const char *format = "png")
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    QBuffer buffer;
    image.save(&buffer, format);
    return buffer.data();
}

/// Each picture a PNG, whose size the folder in front may deny.
QByteArray ico(const std::vector<QByteArray> &pictures)
{
    const auto bytes = [](auto value) {
        QByteArray text(sizeof value, 0);
        qToLittleEndian(value, text.data());
        return text;
    };
    QByteArray folder = bytes(quint16(0)) + bytes(quint16(1)) + bytes(quint16(pictures.size()));
    QByteArray contents;
    for (const QByteArray &each : pictures) {
        folder += QByteArray(4, 0) + bytes(quint16(1)) + bytes(quint16(32)) + bytes(quint32(each.size()))
            + bytes(quint32(6 + 16 * pictures.size() + size_t(contents.size())));
        contents += each;
    }
    return folder + contents;
}

class FaviconServiceTest : public testing::Test
{
protected:
    QImage icon(const char *url) { return QCoro::waitFor(favicons->favicon(*URL::fromString(QString::fromUtf8(url)))); }

    void have(const QString &host) { server.answer(u"/ip3/%1.ico"_qs.arg(host), picture({ 32, 32 }, Qt::red)); }

    HttpServer server;
    URLSession session { "mintaro/1.2" };
    std::unique_ptr<FaviconService> favicons = std::make_unique<FaviconService>(session, server.base());
};

TEST_F(FaviconServiceTest, AsksOnceForAHostInWhateverCase)
{
    have(u"example.com"_qs);
    std::vector<QImage> icons;
    auto ask = [&](const char *url) -> QCoro::Task<> {
        icons.push_back(co_await favicons->favicon(*URL::fromString(QLatin1String(url))));
    };
    const auto first = ask("https://example.com/a");
    const auto second = ask("http://me@EXAMPLE.com:81/b");
    ASSERT_TRUE(QTest::qWaitFor([&] { return icons.size() == 2; }));
    EXPECT_EQ(icon("https://Example.com"), icons[0]);
    EXPECT_EQ(icons[0], icons[1]);
    EXPECT_EQ(icons[0].deviceIndependentSize(), QSizeF(16, 16));
    EXPECT_EQ(icons[0].pixelColor(16, 16), QColor(Qt::red));
    EXPECT_THAT(server.requested, ElementsAre(u"/ip3/example.com.ico"_qs));
}

TEST_F(FaviconServiceTest, AsksAgainAfterAFailure)
{
    server.answer(u"/ip3/example.com.ico"_qs, picture({ 16, 16 }, Qt::red), "404 Not Found");
    EXPECT_TRUE(icon("https://example.com").isNull());
    server.answer(u"/ip3/example.com.ico"_qs, "<html>no picture</html>");
    EXPECT_TRUE(icon("https://example.com").isNull());
    have(u"example.com"_qs);
    EXPECT_FALSE(icon("https://example.com").isNull());
    EXPECT_EQ(server.requested.size(), 3);
}

TEST_F(FaviconServiceTest, AsksForNoHostThatIsNobodysBusiness)
{
    for (const char *const url :
        { "mailto:a@example.com", "https://localhost/", "https://intranet/wiki", "http://192.168.1.1/", "http://[::1]/",
            "http://[::ffff:1.2.3.4]/", "https://nas.local", "https://a.internal", "http://router.home.arpa",
            "http://abcdef.onion", "/etc/hostname", "https://example.com./" })
        EXPECT_TRUE(icon(url).isNull()) << url;
    EXPECT_THAT(server.requested, ElementsAre());
    have(u"xn--bcher-kva.example.de"_qs);
    EXPECT_FALSE(icon("https://b\xc3\xbc"
                      "cher.example.de")
                     .isNull());
}

TEST_F(FaviconServiceTest, ForgetsTheIconThatWasLeftAloneLongest)
{
    for (int i = 0; i < 201; ++i) {
        have(u"h%1.com"_qs.arg(i));
        EXPECT_FALSE(icon(qPrintable(u"https://h%1.com"_qs.arg(i))).isNull()) << i;
        EXPECT_FALSE(icon("https://h0.com").isNull());
    }
    EXPECT_EQ(server.requested.count(u"/ip3/h0.com.ico"_qs), 1);
    EXPECT_FALSE(icon("https://h2.com").isNull());
    EXPECT_EQ(server.requested.count(u"/ip3/h2.com.ico"_qs), 1);
    EXPECT_FALSE(icon("https://h1.com").isNull());
    EXPECT_EQ(server.requested.count(u"/ip3/h1.com.ico"_qs), 2);
}

TEST_F(FaviconServiceTest, MayGoWhileItWaits)
{
    server.keepSilent(u"/ip3/example.com.ico"_qs);
    bool isOver = false;
    auto ask = [&]() -> QCoro::Task<> {
        const QImage icon = co_await favicons->favicon(*URL::fromString(u"https://example.com"_qs));
        isOver = icon.isNull();
    };
    URLSession *const shortLived = new URLSession("mintaro/1.2");
    favicons = std::make_unique<FaviconService>(*shortLived, server.base());
    const auto task = ask();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !server.requested.isEmpty(); }));
    favicons.reset();
    delete shortLived;
    EXPECT_TRUE(QTest::qWaitFor([&] { return isOver; }));
}

TEST(IconImageTest, TakesThePictureThatFitsAndNoneThatIsHuge)
{
    const auto png = [](int edge, const QColor &color) { return picture({ edge, edge }, color); };
    struct Row
    {
        const char *what;
        QByteArray data;
        int pixels; ///< 0: no picture
        QColor color {};
    };
    const std::vector<Row> rows {
        { "as it is", png(16, Qt::blue), 16, Qt::blue },
        { "a JPEG, made smaller", picture({ 512, 512 }, Qt::white, "jpg"), 64, Qt::white },
        { "too large", png(513, Qt::blue), 0 },
        { "the smallest that is enough", ico({ png(16, Qt::red), png(64, Qt::red), png(48, Qt::blue) }), 48, Qt::blue },
        { "the largest of small ones", ico({ png(16, Qt::red), png(24, Qt::blue), png(8, Qt::red) }), 24, Qt::blue },
        { "without the huge one", ico({ png(600, Qt::red), png(16, Qt::blue) }), 16, Qt::blue },
        { "only a huge one", ico({ png(600, Qt::red) }), 0 },
        { "an ICO of bitmaps", picture({ 32, 32 }, Qt::blue, "ico"), 32, Qt::blue },
        { "cut short", ico({ png(32, Qt::red) }).left(60), 0 },
        { "a folder of nothing", QByteArray("\0\0\1\0\xff\xff", 6) + QByteArray(40, '\xff'), 0 },
        { "no picture", "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>", 0 },
        { "nothing", {}, 0 },
    };
    for (const Row &row : rows) {
        const QImage icon = iconImage(row.data);
        EXPECT_EQ(icon.size(), QSize(row.pixels, row.pixels)) << row.what;
        if (row.pixels) {
            EXPECT_EQ(icon.deviceIndependentSize(), QSizeF(16, 16)) << row.what;
            EXPECT_EQ(icon.pixelColor(row.pixels / 2, row.pixels / 2), row.color) << row.what;
        }
    }
    const QImage wide = iconImage(picture({ 32, 16 }, Qt::blue));
    EXPECT_EQ(wide.size(), QSize(32, 32));
    EXPECT_EQ(wide.pixelColor(16, 4).alpha(), 0);
}

} // namespace
} // namespace mintaro
