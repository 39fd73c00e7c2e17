#include "Platform/AppKit/Panel.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QQuickItem>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>

namespace mintaro {

namespace {

TEST(Panel, TakesTheKeyboardInTheMiddleOfTheScreenAndStaysWithoutIt)
{
    QQuickItem content;
    content.setFlag(QQuickItem::ItemIsFocusScope);
    Panel panel({ 340, 480 });
    panel.setContent(&content);
    panel.showCentered();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&panel));
    EXPECT_TRUE(content.hasActiveFocus());
    EXPECT_EQ(content.size(), QSizeF(340, 480));
    const QPointF middle = content.mapToGlobal(QPointF(170, 240));
    EXPECT_LE((middle - panel.screen()->availableGeometry().center()).manhattanLength(), 2);

    QWindow other;
    other.show();
    other.requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_TRUE(panel.isVisible());
    EXPECT_TRUE(panel.flags().testFlag(Qt::WindowStaysOnTopHint));
}

TEST(Panel, TellsWhenTheDesktopClosesIt)
{
    Panel panel({ 340, 480 });
    panel.showCentered();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&panel));
    const QSignalSpy closed(&panel, &Panel::closed);
    panel.hide();
    EXPECT_EQ(closed.count(), 0);
    panel.show();
    panel.close();
    EXPECT_EQ(closed.count(), 1);
}

} // namespace

} // namespace mintaro
