#include "Views/EventEditor/EventEditorPanel.h"

#include "support/KeptWarnings.h"
#include "support/World.h"

#include <gmock/gmock.h>

#include <QAccessible>
#include <QGuiApplication>
#include <QTest>

namespace mintaro {
namespace {

/// The editor as the user has it.
class EventEditorPanelTest : public testing::Test
{
protected:
    EventEditorPanelTest()
    {
        world.addCalendar("work");
        world.addEvent("work", "Daily", during("20260307T150000Z", "20260307T160000Z") + "\nRRULE:FREQ=DAILY;COUNT=3");
        world.loaded();
    }

    void open(const std::optional<EKEvent> &event)
    {
        editor.open(event);
        ASSERT_TRUE(QTest::qWaitForWindowActive(editor.panel()));
        ASSERT_TRUE(QTest::qWaitFor([this] { return reaches(u"Calendar"_qs); }));
    }

    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(editor.panel(), key, modifiers); }

    void type(const char *text)
    {
        for (; *text; ++text)
            QTest::keyClick(editor.panel(), *text);
    }

    [[nodiscard]] QString focused() const
    {
        QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(editor.panel()->activeFocusItem());
        return interface ? interface->text(QAccessible::Name) : QString();
    }

    /// Goes there with Tab; false where that leads nowhere.
    bool reaches(const QString &name)
    {
        const QQuickItem *const first = editor.panel()->activeFocusItem();
        while (focused() != name) {
            key(Qt::Key_Tab);
            if (editor.panel()->activeFocusItem() == first)
                return false;
        }
        return true;
    }

    [[nodiscard]] bool isClosed()
    {
        return QTest::qWaitFor([this] { return !editor.panel(); });
    }

    [[nodiscard]] QStringList agenda()
    {
        QStringList lines;
        for (const DayEvents &day : world.state().agendaEvents()) {
            for (const CalendarEvent &event : day.events)
                lines.append(event.title + u' ' + text(event.startDate));
        }
        return lines;
    }

    KeptWarnings warnings;
    World world { "2026-03-07 12:00" };
    Appearance appearance { QDBusConnection(u"none"_qs) };
    MenuBarLabel label { world.state() };
    ViewEngine views { world.state(), label, appearance };
    EventEditorPanel editor { world.state(), views };
};

TEST_F(EventEditorPanelTest, SavesASentenceThatIsStillBeingTyped)
{
    open(std::nullopt);
    EXPECT_EQ(editor.panel()->title(), u"New Event"_qs);
    ASSERT_TRUE(reaches(u"Title"_qs));
    key(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_TRUE(editor.panel()) << "there is no title";
    type("Lunch tomorrow at Roma");
    key(Qt::Key_Return, Qt::ControlModifier);
    ASSERT_TRUE(isClosed());
    EXPECT_THAT(agenda(), testing::Contains(u"Lunch 2026-03-08T12:00:00Z"_qs));
}

TEST_F(EventEditorPanelTest, WhatTheUserSetAfterTheSentenceHolds)
{
    open(std::nullopt);
    ASSERT_TRUE(reaches(u"Title"_qs));
    type("Lunch tomorrow");
    ASSERT_TRUE(reaches(u"Start, time"_qs));
    type("14:30");
    key(Qt::Key_Return, Qt::ControlModifier);
    ASSERT_TRUE(isClosed());
    EXPECT_THAT(agenda(), testing::Contains(u"Lunch 2026-03-08T14:30:00Z"_qs));
}

TEST_F(EventEditorPanelTest, AsksAboutASeriesAndEscapeGoesBackToTheForm)
{
    open(world.state().agendaEvents()[1].events.front().ekEvent);
    EXPECT_EQ(editor.panel()->title(), u"Edit Event"_qs);
    ASSERT_TRUE(reaches(u"Location"_qs));
    type("Roma");
    key(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(focused(), u"Only This Event"_qs);
    key(Qt::Key_Escape);
    ASSERT_TRUE(editor.panel());
    EXPECT_EQ(focused(), u"Location"_qs);
    key(Qt::Key_Return, Qt::ControlModifier);
    key(Qt::Key_Return);
    ASSERT_TRUE(isClosed());
    EXPECT_EQ(world.state().agendaEvents()[1].events.front().location, u"Roma"_qs);
    EXPECT_FALSE(world.state().agendaEvents()[2].events.front().location);
}

TEST_F(EventEditorPanelTest, ThereIsOneAndEscapeOrTheDesktopClosesIt)
{
    open(std::nullopt);
    ASSERT_TRUE(reaches(u"Title"_qs));
    type("first");
    open(std::nullopt);
    const auto isVisible = [](const QWindow *window) { return window->isVisible(); };
    EXPECT_EQ(std::ranges::count_if(QGuiApplication::topLevelWindows(), isVisible), 1);
    key(Qt::Key_Escape);
    EXPECT_FALSE(editor.panel());
    open(std::nullopt);
    editor.panel()->QWindow::close();
    EXPECT_FALSE(editor.panel());
    QCoro::waitFor(world.state().refreshAll());
    EXPECT_EQ(agenda().size(), 3);
}

} // namespace
} // namespace mintaro
