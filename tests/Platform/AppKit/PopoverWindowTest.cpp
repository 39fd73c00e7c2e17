#include "Platform/AppKit/PopoverWindow.h"

#include <gtest/gtest.h>

#include <QKeyEvent>
#include <QQuickItem>
#include <QSignalSpy>
#include <QTest>

namespace mintaro {

namespace {

/// Takes Escape for itself, as a sheet does, or leaves it.
class Content : public QQuickItem
{
public:
    bool takesEscape = false;

    Content() { setFlag(ItemIsFocusScope); }

protected:
    void keyPressEvent(QKeyEvent *event) override { event->setAccepted(takesEscape); }
};

class PopoverWindowTest : public testing::Test
{
protected:
    PopoverWindowTest()
    {
        window.setContent(&content);
        window.showAt(QPoint(300, 10));
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    Content content;
    PopoverWindow window;
};

TEST_F(PopoverWindowTest, GivesTheContentTheCardAndTheKeyboard)
{
    EXPECT_EQ(content.size(), QSizeF(320, 480));
    EXPECT_TRUE(content.hasActiveFocus());
}

TEST_F(PopoverWindowTest, EscapeClosesUnlessTheContentTookIt)
{
    const QSignalSpy closed(&window, &PopoverWindow::closed);
    content.takesEscape = true;
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_TRUE(window.isVisible());
    content.takesEscape = false;
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(closed.count(), 1);
}

TEST_F(PopoverWindowTest, AClickBesideTheCardClosesAndDoesNotReopen)
{
    QTest::mouseClick(&window, Qt::LeftButton, {}, QPoint(3, 3));
    EXPECT_FALSE(window.isVisible());
    window.toggleAt(QPoint(300, 10)); // the panel passes the same click on
    EXPECT_FALSE(window.isVisible());
}

TEST_F(PopoverWindowTest, TogglingAfterEscapeOpensAtOnce)
{
    QTest::keyClick(&window, Qt::Key_Escape);
    window.toggleAt(QPoint(300, 10));
    EXPECT_TRUE(window.isVisible());
    window.toggleAt(QPoint(300, 10));
    EXPECT_FALSE(window.isVisible());
}

TEST_F(PopoverWindowTest, GoesWhenItLosesTheKeyboard)
{
    QWindow other;
    other.show();
    other.requestActivate();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !window.isVisible(); }));
}

} // namespace

} // namespace mintaro
