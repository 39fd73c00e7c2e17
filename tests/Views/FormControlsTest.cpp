#include "Views/Components/SymbolImageProvider.h"
#include "Views/ViewEngine.h"

#include "support/World.h"

#include <gmock/gmock.h>

#include <QAccessible>
#include <QQmlComponent>
#include <QQuickWindow>
#include <QTest>

namespace mintaro {
namespace {

constexpr const char *kForm = R"(
import QtQuick
import Mintaro

FocusScope {
    id: root

    required property AppState appState
    property string title
    property string location
    property bool isAllDay
    property var date
    property var offset
    property int cancelled
    property int saved

    width: 320
    height: 180

    Shortcut { sequence: "Escape"; onActivated: ++root.cancelled }
    Column {
        width: parent.width

        FormSection {
            width: parent.width

            NaturalLanguageField {
                appState: root.appState
                text: root.title
                onEdited: root.title = text
                onParsed: root.title = "taken over"
            }
            FormRow {
                label: "All Day"

                ToggleSwitch { accessibleName: "All Day"; checked: root.isAllDay; onToggled: root.isAllDay = checked }
            }
            FormRow {
                label: "Start"

                DateTimeField {
                    accessibleName: "Start"
                    appState: root.appState
                    dateOnly: root.isAllDay
                    date: root.date
                    onDateEdited: root.date = date
                }
            }
            NotesField { width: parent.width; accessibleName: "Notes" }
            AlertPicker { alertOffset: root.offset; onEdited: root.offset = alertOffset }
        }
        PushButton { text: "Save"; onClicked: ++root.saved }
    }
}
)";

class FormControlsTest : public testing::Test
{
protected:
    FormControlsTest()
    {
        engine.addImportPath(u"qrc:/"_qs);
        engine.addImageProvider(u"symbol"_qs, new SymbolImageProvider);
        engine.setProperty("themeController", QVariant::fromValue(&theme));
        QQmlComponent component(&engine);
        component.setData(kForm, QUrl());
        form.reset(qobject_cast<QQuickItem *>(component.createWithInitialProperties({
            { u"appState"_qs, QVariant::fromValue(&world.state()) },
            { u"date"_qs, QVariant::fromValue(at("2026-03-10 15:30")) },
            { u"offset"_qs, QVariant::fromValue(std::optional(std::chrono::seconds { -7200 })) },
        })));
        if (!form)
            qFatal("%s", qUtf8Printable(component.errorString()));
        form->setParentItem(window.contentItem());
        window.resize(form->size().toSize());
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        form->forceActiveFocus();
    }

    void key(int key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&window, Qt::Key(key), modifiers); }

    void type(const char *text)
    {
        for (; *text; ++text)
            QTest::keyClick(&window, *text);
    }

    [[nodiscard]] static QString nameOf(QQuickItem *item)
    {
        QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(item);
        return interface ? interface->text(QAccessible::Name) : QString();
    }
    [[nodiscard]] QString focused() const { return nameOf(window.activeFocusItem()); }

    /// Null where there is none.
    [[nodiscard]] static QQuickItem *descendant(QQuickItem *item, const QString &name)
    {
        for (QQuickItem *child : item->childItems()) {
            if (QQuickItem *found = nameOf(child) == name ? child : descendant(child, name))
                return found;
        }
        return nullptr;
    }

    void click(QQuickItem *item)
    {
        ASSERT_TRUE(item);
        const QPointF middle(item->width() / 2, item->height() / 2);
        QTest::mouseClick(&window, Qt::LeftButton, {}, item->mapToScene(middle).toPoint());
    }

    void tabTo(const QString &name)
    {
        for (int i = 0; i < 20 && focused() != name; ++i)
            key(Qt::Key_Tab);
        ASSERT_EQ(focused(), name);
    }

    template <typename T>
    [[nodiscard]] T value(const char *name) const
    {
        return form->property(name).value<T>();
    }

    World world { "2026-03-07 12:00" };
    Appearance appearance { QDBusConnection(u"none"_qs) };
    MenuBarLabel label { world.state() };
    // Registers the module.
    ViewEngine views { world.state(), label, appearance };
    ThemeController theme { appearance, world.defaults };
    QQmlEngine engine;
    QQuickWindow window;
    std::unique_ptr<QQuickItem> form;
};

TEST_F(FormControlsTest, TabGoesThroughTheForm)
{
    tabTo(u"Title"_qs);
    QStringList order { focused() };
    for (key(Qt::Key_Tab); focused() != order.first() && order.size() < 20; key(Qt::Key_Tab))
        order.append(focused());
    EXPECT_THAT(order,
        testing::ElementsAre(u"Title"_qs, u"All Day"_qs, u"Start, choose a day"_qs, u"Start"_qs, u"Start, time"_qs,
            u"Notes"_qs, u"Alert"_qs, u"Save"_qs));
}

TEST_F(FormControlsTest, SentenceIsHandedOnWhenTheLineIsLeft)
{
    tabTo(u"Title"_qs);
    type("Lunch tomorrow");
    EXPECT_EQ(value<QString>("title"), u"Lunch tomorrow"_qs);
    key(Qt::Key_Tab);
    EXPECT_EQ(value<QString>("title"), u"taken over"_qs);
    key(Qt::Key_Tab, Qt::ShiftModifier);
    // All is selected, so that typing replaces it.
    type("Tea");
    EXPECT_EQ(value<QString>("title"), u"Tea"_qs);
}

TEST_F(FormControlsTest, DayAndTimeAreTyped)
{
    tabTo(u"Start"_qs);
    type("1/4");
    EXPECT_EQ(value<Date>("date"), at("2026-03-10 15:30"));
    key(Qt::Key_Tab);
    EXPECT_EQ(value<Date>("date"), at("2026-04-01 15:30"));
    type("930");
    key(Qt::Key_Return);
    EXPECT_EQ(value<Date>("date"), at("2026-04-01 09:30"));
    // The cursor stands behind the minutes.
    key(Qt::Key_Up);
    EXPECT_EQ(value<Date>("date"), at("2026-04-01 09:31"));
    type("x");
    key(Qt::Key_Escape);
    EXPECT_EQ(value<int>("cancelled"), 0);
    key(Qt::Key_Escape);
    EXPECT_EQ(value<int>("cancelled"), 1);
    EXPECT_EQ(value<Date>("date"), at("2026-04-01 09:31"));
}

TEST_F(FormControlsTest, MonthPicksADay)
{
    tabTo(u"Start"_qs);
    key(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(focused(), u"March 2026"_qs);
    key(Qt::Key_PageDown);
    key(Qt::Key_Left);
    key(Qt::Key_Return);
    EXPECT_EQ(value<Date>("date"), at("2026-04-09 15:30"));
    EXPECT_EQ(focused(), u"Start"_qs);
    key(Qt::Key_Down, Qt::AltModifier);
    key(Qt::Key_Down);
    key(Qt::Key_Escape);
    EXPECT_EQ(value<Date>("date"), at("2026-04-09 15:30"));
    EXPECT_EQ(value<int>("cancelled"), 0);
}

TEST_F(FormControlsTest, MenuIsUsedByKeysAndStaysInTheWindow)
{
    using Offset = std::optional<std::chrono::seconds>;
    tabTo(u"Alert"_qs);
    key(Qt::Key_Space);
    // The row's list, in whose content it lies.
    const QQuickItem *list = window.activeFocusItem()->parentItem()->parentItem();
    ASSERT_TRUE(list->inherits("QQuickListView"));
    const QRectF place = list->mapRectToScene(QRectF(0, 0, list->width(), list->height()));
    EXPECT_TRUE(QRectF(form->position(), form->size()).contains(place));
    type("15");
    key(Qt::Key_Escape);
    EXPECT_EQ(value<int>("cancelled"), 0);
    EXPECT_EQ(value<Offset>("offset"), std::chrono::seconds { -7200 });
    key(Qt::Key_Down);
    type("15");
    key(Qt::Key_Return);
    EXPECT_EQ(value<Offset>("offset"), std::chrono::minutes { -15 });
    EXPECT_EQ(focused(), u"Alert"_qs);
    key(Qt::Key_Down);
    key(Qt::Key_End);
    key(Qt::Key_Up);
    key(Qt::Key_Return);
    EXPECT_EQ(value<Offset>("offset"), std::chrono::hours { -1 });
}

TEST_F(FormControlsTest, MenuAndMonthAreUsedByMouse)
{
    tabTo(u"Alert"_qs);
    click(window.activeFocusItem());
    EXPECT_EQ(focused(), u"None"_qs);
    QTest::mouseClick(&window, Qt::LeftButton, {}, QPoint(2, 2));
    EXPECT_EQ(focused(), u"Alert"_qs);
    click(window.activeFocusItem());
    click(descendant(window.contentItem(), u"5 minutes before"_qs));
    EXPECT_EQ(value<std::optional<std::chrono::seconds>>("offset"), std::chrono::minutes { -5 });
    tabTo(u"Start, choose a day"_qs);
    click(window.activeFocusItem());
    click(descendant(window.contentItem(), u"Friday, 20 March 2026"_qs));
    EXPECT_EQ(value<Date>("date"), at("2026-03-20 15:30"));
}

TEST_F(FormControlsTest, NotesGrowFromThreeLinesToSix)
{
    tabTo(u"Notes"_qs);
    const QQuickItem *text = window.activeFocusItem();
    const QQuickItem *notes = text->parentItem()->parentItem()->parentItem();
    std::vector<double> heights;
    for (int lines = 1; lines <= 8; ++lines) {
        heights.push_back(notes->height());
        key(Qt::Key_Return);
    }
    EXPECT_EQ(heights[2], heights[0]);
    EXPECT_GT(heights[3], heights[2]);
    EXPECT_GT(heights[5], heights[4]);
    EXPECT_EQ(heights[7], heights[5]);
    EXPECT_GT(text->height(), notes->height());
}

TEST_F(FormControlsTest, SwitchHidesTheTime)
{
    tabTo(u"All Day"_qs);
    key(Qt::Key_Space);
    EXPECT_TRUE(value<bool>("isAllDay"));
    key(Qt::Key_Return);
    EXPECT_FALSE(value<bool>("isAllDay"));
    key(Qt::Key_Space);
    tabTo(u"Start"_qs);
    key(Qt::Key_Tab);
    EXPECT_EQ(focused(), u"Notes"_qs);
    tabTo(u"Save"_qs);
    key(Qt::Key_Return);
    EXPECT_EQ(value<int>("saved"), 1);
}

} // namespace
} // namespace mintaro
