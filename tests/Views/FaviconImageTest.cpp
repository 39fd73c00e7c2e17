#include "Services/FaviconService.h"
#include "Views/Components/SymbolImageProvider.h"
#include "Views/ViewEngine.h"

#include "support/HttpServer.h"
#include "support/World.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QQmlComponent>
#include <QQuickWindow>
#include <QTest>

namespace mintaro {
namespace {

QByteArray picture(const QColor &color)
{
    QImage image(32, 32, QImage::Format_RGB32);
    image.fill(color);
    QBuffer buffer;
    image.save(&buffer, "png");
    return buffer.data();
}

class FaviconImageTest : public testing::Test
{
protected:
    FaviconImageTest()
    {
        engine.addImportPath(u"qrc:/"_qs);
        engine.addImageProvider(u"symbol"_qs, new SymbolImageProvider);
        engine.setProperty("themeController", QVariant::fromValue(&theme));
        engine.setProperty("faviconService", QVariant::fromValue(&favicons));
        QQmlComponent component(&engine);
        component.setData("import Mintaro\nFaviconImage { }", QUrl());
        image.reset(qobject_cast<QQuickItem *>(component.create()));
        if (!image)
            qFatal("%s", qUtf8Printable(component.errorString()));
        image->setParentItem(window.contentItem());
        window.resize(12, 12);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    }

    void show(const char *url) { image->setProperty("url", QLatin1String(url)); }
    /// A corner, where the symbol leaves the ground as it is.
    QColor corner() { return window.grabWindow().pixelColor(1, 1); }
    [[nodiscard]] bool becomes(const QColor &color)
    {
        return QTest::qWaitFor([&] { return corner() == color; });
    }

    HttpServer server;
    URLSession session { "mintaro/1.2" };
    FaviconService favicons { session, server.base() };
    World world { "2026-03-07 12:00" };
    Appearance appearance { QDBusConnection(u"none"_qs) };
    MenuBarLabel label { world.state() };
    // Registers the module.
    ViewEngine views { world.state(), label, appearance };
    ThemeController theme { appearance, world.defaults };
    QQmlEngine engine;
    QQuickWindow window;
    std::unique_ptr<QQuickItem> image;
};

TEST_F(FaviconImageTest, ShowsTheIconOfTheNewestUrlAndElseTheSymbol)
{
    const QImage nothing = window.grabWindow();
    QImage blank = nothing;
    blank.fill(Qt::white);
    EXPECT_NE(nothing, blank);
    EXPECT_EQ(image->size(), QSizeF(12, 12));
    EXPECT_EQ(corner(), QColor(Qt::white));
    server.keepSilent(u"/ip3/slow.com.ico"_qs);
    server.answer(u"/ip3/fast.com.ico"_qs, picture(Qt::blue));
    show("https://slow.com");
    ASSERT_TRUE(QTest::qWaitFor([&] { return server.requested.size() == 1; }));
    show("https://fast.com");
    EXPECT_TRUE(becomes(Qt::blue));

    server.answerLate(u"/ip3/slow.com.ico"_qs, picture(Qt::red));
    bool hasCome = false;
    auto wait = [&]() -> QCoro::Task<> {
        const QImage icon = co_await favicons.favicon(*URL::fromString(u"https://slow.com"_qs));
        hasCome = !icon.isNull();
    };
    const auto task = wait();
    ASSERT_TRUE(QTest::qWaitFor([&] { return hasCome; }));
    EXPECT_EQ(corner(), QColor(Qt::blue));

    show("https://none.com");
    EXPECT_EQ(window.grabWindow(), nothing);
    show("https://slow.com");
    EXPECT_TRUE(becomes(Qt::red));
}

TEST_F(FaviconImageTest, GoesWhileItWaits)
{
    server.keepSilent(u"/ip3/slow.com.ico"_qs);
    show("https://slow.com");
    ASSERT_TRUE(QTest::qWaitFor([&] { return server.requested.size() == 1; }));
    image.reset();
    server.answerLate(u"/ip3/slow.com.ico"_qs, picture(Qt::red));
    const QImage icon = QCoro::waitFor(favicons.favicon(*URL::fromString(u"https://slow.com"_qs)));
    EXPECT_FALSE(icon.isNull());
}

} // namespace
} // namespace mintaro
