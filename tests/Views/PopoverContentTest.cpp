#include "Platform/AppKit/PopoverWindow.h"
#include "Views/ViewEngine.h"

#include "support/Controls.h"
#include "support/KeptWarnings.h"
#include "support/World.h"

#include <gmock/gmock.h>

#include <QCoreApplication>

namespace mintaro {
namespace {

/// The row of the event.
const QString kReview = u"Review, 13:00 - 14:00, https://zoom.us/j/1"_qs;

/// The popover as the user has it.
class PopoverContentTest : public testing::Test
{
protected:
    PopoverContentTest()
    {
        world.addCalendar("work");
        world.addEvent(
            "work", "Review", during("20260307T130000Z", "20260307T140000Z") + "\nLOCATION:https://zoom.us/j/1");
        world.addReminder("work", "Milk", "DUE:20260308T080000Z");
    }

    void show()
    {
        world.loaded();
        label.emplace(world.state());
        views.emplace(world.state(), *label, appearance);
        content = views->makeMainPopoverView();
        ASSERT_TRUE(content);
        window.setContent(content.get());
        window.showAt(QPoint(300, 10));
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    void open()
    {
        show();
        ASSERT_TRUE(QTest::qWaitFor([this] { return named(u"Join Zoom"_qs) != nullptr; }));
    }

    [[nodiscard]] QList<QQuickItem *> buttons() const
    {
        QList<QQuickItem *> items = controls(window);
        items.removeIf([](QQuickItem *item) { return !item->inherits("QQuickAbstractButton"); });
        return items;
    }

    [[nodiscard]] QQuickItem *named(const QString &name) const { return control(window, name); }

    void click(const QString &name) { ASSERT_TRUE(mintaro::click(window, name)) << name.toStdString(); }

    void drag(QPoint from, QPoint by)
    {
        constexpr int kSteps = 8;
        QTest::mousePress(&window, Qt::LeftButton, {}, from);
        for (int step = 1; step <= kSteps; ++step)
            QTest::mouseMove(&window, from + by * step / kSteps);
        QTest::mouseRelease(&window, Qt::LeftButton, {}, from + by);
    }

    void focusReview()
    {
        for (int i = 0; i < 60 && focused() != kReview; ++i)
            QTest::keyClick(&window, Qt::Key_Tab);
        ASSERT_EQ(focused(), kReview);
    }

    [[nodiscard]] QString focused() const { return accessibleName(window.activeFocusItem()); }

    KeptWarnings warnings;
    World world { "2026-03-07 12:00" };
    Appearance appearance { QDBusConnection(u"none"_qs) };
    std::optional<MenuBarLabel> label;
    std::optional<ViewEngine> views;
    PopoverWindow window;
    std::unique_ptr<QQuickItem> content;
};

TEST_F(PopoverContentTest, NamesEveryButton)
{
    open();
    EXPECT_GE(buttons().size(), 42 + 3 + 3);
    for (QQuickItem *button : buttons())
        EXPECT_FALSE(accessibleName(button).isEmpty()) << button->metaObject()->className();
}

TEST_F(PopoverContentTest, TabGoesRoundAndBackAgain)
{
    open();
    const QStringList stops { u"Saturday, 7 March 2026, Today, has events"_qs, kReview, u"Join Zoom"_qs,
        u"New Event"_qs, u"Search"_qs, u"Settings"_qs, u"Quit"_qs, u"Previous Month"_qs, u"Today"_qs,
        u"Next Month"_qs };
    EXPECT_EQ(focused(), stops.front());
    for (qsizetype i = 1; i <= stops.size(); ++i) {
        QTest::keyClick(&window, Qt::Key_Tab);
        EXPECT_EQ(focused(), stops[i % stops.size()]);
    }
    for (qsizetype i = stops.size() - 1; i >= 0; --i) {
        QTest::keyClick(&window, Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_EQ(focused(), stops[i]);
    }
}

TEST_F(PopoverContentTest, ArrowsWalkTheDays)
{
    open();
    for (const auto &[key, day] : { std::pair { Qt::Key_Right, "Sunday, 8 March 2026" },
             std::pair { Qt::Key_Down, "Sunday, 15 March 2026" }, std::pair { Qt::Key_Left, "Saturday, 14 March 2026" },
             std::pair { Qt::Key_Up, "Saturday, 7 March 2026, Today, has events" } }) {
        QTest::keyClick(&window, key);
        EXPECT_EQ(focused(), QLatin1String(day));
    }
    QTest::keyClick(&window, Qt::Key_Down);
    QTest::keyClick(&window, Qt::Key_Return);
    EXPECT_EQ(world.state().selectedDate(), at("2026-03-14"));
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(&window, Qt::Key_Up);
    QCoro::waitFor(world.state().refreshAll());
    EXPECT_EQ(focused(), u"Saturday, 21 February 2026"_qs);
    EXPECT_EQ(world.state().monthDate(), at("2026-02-07 12:00"));
}

TEST_F(PopoverContentTest, ControlsOfAReminderAreReachedFromItsRow)
{
    world.addReminder("work", "Milk", "DUE:20260308T080000Z\nURL:https://shop.example.org/milk");
    open();
    focusReview();
    QTest::keyClick(&window, Qt::Key_Down);
    EXPECT_TRUE(focused().startsWith(u"Milk"_qs));
    QTest::keyClick(&window, Qt::Key_Tab);
    QTest::keyClick(&window, Qt::Key_Tab);
    EXPECT_EQ(focused(), u"Open Link"_qs);
    QTest::keyClick(&window, Qt::Key_Return);
    EXPECT_THAT(world.workspace.opened, testing::ElementsAre(u"https://shop.example.org/milk"_qs));
    QTest::keyClick(&window, Qt::Key_Backtab, Qt::ShiftModifier);
    QTest::keyClick(&window, Qt::Key_Space);
    EXPECT_TRUE(QTest::qWaitFor([this] { return world.state().remindersVM().reminders().front().isCompleted; }));
}

TEST_F(PopoverContentTest, ReturnPressesWhatHasTheFocus)
{
    open();
    for (int i = 0; i < 60 && accessibleName(window.activeFocusItem()) != u"Next Month"_qs; ++i)
        QTest::keyClick(&window, Qt::Key_Tab);
    QTest::keyClick(&window, Qt::Key_Return);
    EXPECT_EQ(world.state().monthDate(), at("2026-04-07 12:00"));
    QTest::keyClick(&window, Qt::Key_Space);
    EXPECT_EQ(world.state().monthDate(), at("2026-05-07 12:00"));
}

TEST_F(PopoverContentTest, ClickSelectsADay)
{
    open();
    click(u"Tuesday, 10 March 2026"_qs);
    EXPECT_EQ(world.state().selectedDate(), at("2026-03-10"));
    click(u"Thursday, 2 April 2026"_qs);
    EXPECT_EQ(world.state().selectedDate(), at("2026-04-02"));
    EXPECT_EQ(world.state().monthDate(), at("2026-03-07 12:00"));
}

TEST_F(PopoverContentTest, ClickOnJoinOpensTheMeeting)
{
    open();
    click(u"Join Zoom"_qs);
    QCoreApplication::processEvents();
    EXPECT_THAT(world.workspace.opened, testing::ElementsAre(u"https://zoom.us/j/1"_qs));
}

TEST_F(PopoverContentTest, KeysMoveTheMonth)
{
    open();
    QTest::keyClick(&window, Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(world.state().monthDate(), at("2026-04-07 12:00"));
    QTest::keyClick(&window, Qt::Key_Left, Qt::ControlModifier);
    QTest::keyClick(&window, Qt::Key_Left, Qt::ControlModifier);
    EXPECT_EQ(world.state().monthDate(), at("2026-02-07 12:00"));
    world.clock.moment = at("2026-03-07 12:01");
    QTest::keyClick(&window, Qt::Key_T);
    EXPECT_EQ(world.state().monthDate(), world.clock.moment);
    EXPECT_EQ(world.state().selectedDate(), world.clock.moment);
}

TEST_F(PopoverContentTest, SwipeMovesTheMonthAndSelectsNothing)
{
    open();
    const QPoint start = middle(named(u"Wednesday, 18 March 2026"_qs));
    const Date selected = world.state().selectedDate();
    drag(start, { 10, 150 });
    EXPECT_EQ(world.state().monthDate(), at("2026-03-07 12:00"));
    drag(start, { -90, 0 });
    EXPECT_EQ(world.state().monthDate(), at("2026-04-07 12:00"));
    drag(start, { 90, 5 });
    EXPECT_EQ(world.state().monthDate(), at("2026-03-07 12:00"));
    EXPECT_EQ(world.state().selectedDate(), selected);
}

TEST_F(PopoverContentTest, OffersTheWayToAccess)
{
    world.backend->isAccessible = false;
    show();
    click(qtTrId("Open Privacy Settings"));
    EXPECT_EQ(world.workspace.opened.size(), 1);
}

TEST_F(PopoverContentTest, StandsThroughMonthsPreferencesAndDays)
{
    open();
    const auto watching = world.state().watchStoreChanges();
    world.defaults.setBool(true, u"ShowWeekNumbers"_qs);
    for (const int delta : { 1, -2, 12, -11 }) {
        world.state().navigateMonth(delta);
        QCoro::waitFor(world.state().refreshAll());
    }
    world.clock.moment = at("2026-03-08 12:00");
    Q_EMIT world.environment.significantTimeChange();
    EXPECT_TRUE(QTest::qWaitFor([this] { return named(u"Sunday, 8 March 2026, Today"_qs) != nullptr; }));
    world.state().setSelectedDate(at("2026-05-01"));
    EXPECT_TRUE(QTest::qWaitFor([this] { return named(u"Join Zoom"_qs) == nullptr; }));
}

TEST_F(PopoverContentTest, TheToolbarOpensTheEditor)
{
    open();
    QTest::keyClick(&window, Qt::Key_N, Qt::ControlModifier);
    click(u"New Event"_qs);
    ASSERT_EQ(world.eventEditor.opened.size(), 2U);
    EXPECT_FALSE(world.eventEditor.opened.back());
}

TEST_F(PopoverContentTest, TheMenuOfARowIsThereForTheKeyboard)
{
    open();
    focusReview();
    QTest::keyClick(&window, Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_EQ(focused(), u"Edit Event"_qs);
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_EQ(focused(), kReview);
    QTest::keyClick(&window, Qt::Key_Menu);
    QTest::keyClick(&window, Qt::Key_Return);
    ASSERT_TRUE(QTest::qWaitFor([this] { return world.eventEditor.opened.size() == 1; }));
    EXPECT_EQ(world.eventEditor.opened.front()->title(), u"Review"_qs);
    EXPECT_TRUE(window.isVisible());
}

TEST_F(PopoverContentTest, ARightClickOpensTheMenuOfARow)
{
    open();
    const auto rightClick = [this](const QString &control, int beside) {
        QTest::mouseClick(&window, Qt::RightButton, {}, middle(named(control)) + QPoint(beside, 0));
        QTest::keyClick(&window, Qt::Key_Down);
    };
    rightClick(u"Join Zoom"_qs, -100);
    EXPECT_EQ(focused(), u"Edit Event"_qs);
    QTest::keyClick(&window, Qt::Key_Escape);
    rightClick(u"Milk"_qs, 100);
    EXPECT_EQ(focused(), u"Mark as Completed"_qs);
    QTest::keyClick(&window, Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([this] { return world.state().remindersVM().reminders().front().isCompleted; }));
}

TEST_F(PopoverContentTest, SearchesInASheetThatKeepsWhatItFound)
{
    open();
    QTest::keyClick(&window, Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(focused(), u"Search events…"_qs);
    for (const char letter : { 't', 'Z', 'o', 'o', 'm', '.' })
        QTest::keyClick(&window, letter);
    QTest::keyClick(&window, Qt::Key_Home, Qt::ShiftModifier);
    for (const char letter : { 'r', 'E', 'v' })
        QTest::keyClick(&window, letter);
    EXPECT_EQ(world.state().searchVM()->searchText(), u"rEv"_qs);
    EXPECT_TRUE(world.state().searchVM()->results().empty());
    QTest::keyClick(&window, Qt::Key_Return);
    ASSERT_TRUE(QTest::qWaitFor([this] { return world.state().searchVM()->results().size() == 1; }));
    QTest::keyClick(&window, Qt::Key_Down);
    EXPECT_EQ(focused(), kReview);
    // The keys of the controls below the sheet wait.
    QTest::keyClick(&window, Qt::Key_T);
    QTest::keyClick(&window, Qt::Key_N, Qt::ControlModifier);
    EXPECT_TRUE(world.eventEditor.opened.empty());
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(world.state().isShowingSearch());
    EXPECT_TRUE(window.isVisible());
    QTest::keyClick(&window, Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(world.state().searchVM()->searchText(), u"rEv"_qs);
    EXPECT_EQ(world.state().searchVM()->results().size(), 1U);
    world.state().setPopoverVisible(true);
    // What is deleted goes from the results, though something else has been typed.
    world.state().searchVM()->setSearchText(u"other"_qs);
    world.backend->contents[u"work"_qs].erase(u"Review.ics"_qs);
    world.tellOfChange();
    QCoro::waitFor(world.state().refreshAll());
    EXPECT_TRUE(QTest::qWaitFor([this] { return world.state().searchVM()->results().empty(); }));
    click(u"Done"_qs);
    EXPECT_FALSE(world.state().isShowingSearch());
}

TEST_F(PopoverContentTest, AsksBeforeItDeletes)
{
    open();
    focusReview();
    const auto requestDelete = [this] {
        QTest::keyClick(&window, Qt::Key_Menu);
        for (int i = 0; i < 10 && focused() != u"Delete Event"_qs; ++i)
            QTest::keyClick(&window, Qt::Key_Down);
        QTest::keyClick(&window, Qt::Key_Return);
        ASSERT_TRUE(QTest::qWaitFor([this] { return focused() == u"Cancel"_qs; }));
    };
    for (const auto key : { Qt::Key_Escape, Qt::Key_Return }) {
        requestDelete();
        QTest::keyClick(&window, key);
        EXPECT_FALSE(world.state().pendingDeleteEvent() || world.state().isShowingDeleteConfirmation());
        EXPECT_TRUE(window.isVisible());
        EXPECT_EQ(focused(), kReview);
    }
    requestDelete();
    QTest::keyClick(&window, Qt::Key_Tab);
    EXPECT_EQ(focused(), u"Delete"_qs);
    QTest::keyClick(&window, Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([this] { return named(u"Join Zoom"_qs) == nullptr; }));
}

TEST_F(PopoverContentTest, TheKeyboardStaysInTheListWhenItsRowGoesUnderAnAlertOrAMenu)
{
    for (const auto key : { Qt::Key_Delete, Qt::Key_Menu }) {
        world.addEvent(
            "work", "Review", during("20260307T130000Z", "20260307T140000Z") + "\nLOCATION:https://zoom.us/j/1");
        if (content) {
            world.tellOfChange();
            QCoro::waitFor(world.state().refreshAll());
            EXPECT_TRUE(QTest::qWaitFor([this] { return named(u"Join Zoom"_qs) != nullptr; }));
            QTest::keyClick(&window, Qt::Key_Up);
        } else {
            open();
            focusReview();
        }
        EXPECT_EQ(focused(), kReview);
        if (key == Qt::Key_Menu)
            QTest::keyClick(&window, key);
        else
            world.state().requestDeleteEvent(world.state().agendaEvents().front().events.front());
        world.backend->contents[u"work"_qs].erase(u"Review.ics"_qs);
        world.tellOfChange();
        QCoro::waitFor(world.state().refreshAll());
        EXPECT_TRUE(QTest::qWaitFor([this] {
            return std::ranges::none_of(buttons(), [](QQuickItem *button) {
                return accessibleName(button) == u"Join Zoom"_qs && !button->inherits("QQuickMenuItem");
            });
        }));
        QTest::keyClick(&window, Qt::Key_Escape);
        EXPECT_TRUE(focused().startsWith(u"Milk"_qs)) << focused().toStdString();
    }
}

TEST_F(PopoverContentTest, AClosedPopoverOpensWithoutItsMenu)
{
    open();
    focusReview();
    QTest::keyClick(&window, Qt::Key_Menu);
    window.hidePopover();
    window.showAt(QPoint(300, 10));
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(&window, Qt::Key_T);
    EXPECT_EQ(focused(), kReview);
}

TEST_F(PopoverContentTest, AsksHowManyOfASeriesToDelete)
{
    world.addEvent("work", "Daily", during("20260307T150000Z", "20260307T160000Z") + "\nRRULE:FREQ=DAILY");
    open();
    world.state().requestDeleteEvent(world.state().agendaEvents().front().events.back());
    EXPECT_EQ(focused(), u"Only This Event"_qs);
    QTest::keyClick(&window, Qt::Key_Tab);
    QTest::keyClick(&window, Qt::Key_Return);
    EXPECT_FALSE(world.state().isShowingSpanPicker());
    EXPECT_TRUE(QTest::qWaitFor([this] { return world.state().agendaEvents().size() == 2; }));
}

TEST_F(PopoverContentTest, EscapeClosesTheErrorFirst)
{
    open();
    world.state().setErrorMessage(u"no"_qs);
    EXPECT_EQ(focused(), u"OK"_qs);
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_EQ(world.state().errorMessage(), QString());
    EXPECT_TRUE(window.isVisible());
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(PopoverContentTest, LabelSpeaksItsText)
{
    world.loaded();
    label.emplace(world.state());
    views.emplace(world.state(), *label, appearance);
    const auto chip = views->makeMenuBarLabel();
    ASSERT_TRUE(chip);
    QQuickWindow host;
    chip->setParentItem(host.contentItem());
    host.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&host));
    EXPECT_EQ(accessibleName(chip.get()), label->text());
    const double width = chip->implicitWidth();
    world.defaults.setBool(false, u"ShowNextEventInMenuBar"_qs);
    EXPECT_EQ(accessibleName(chip.get()), u"7 Mar"_qs);
    EXPECT_TRUE(QTest::qWaitFor([&] { return chip->implicitWidth() < width; }));
}

} // namespace
} // namespace mintaro
