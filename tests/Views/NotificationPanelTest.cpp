#include "Views/Notifications/NotificationPanel.h"

#include "support/KeptWarnings.h"
#include "support/World.h"

#include <gmock/gmock.h>

#include <QAccessible>
#include <QGuiApplication>
#include <QScreen>
#include <QTest>

namespace mintaro {
namespace {

using testing::ElementsAre;

class NotificationPanelTest : public testing::Test
{
protected:
    void present(const QString &identifier)
    {
        panel.present({ .identifier = identifier,
            .title = u"<b>&amp; "_qs + identifier,
            .body = u"in 5 minutes"_qs,
            .hasSound = true,
            .actions = { { u"JOIN"_qs, u"Join"_qs } } });
    }

    /// From top to bottom.
    static std::vector<QWindow *> cards()
    {
        std::vector<QWindow *> windows;
        std::ranges::copy_if(QGuiApplication::topLevelWindows(), std::back_inserter(windows),
            [](const QWindow *window) { return window->isVisible(); });
        std::ranges::sort(windows, {}, &QWindow::y);
        return windows;
    }

    static QStringList titles()
    {
        QStringList titles;
        for (const QWindow *window : cards())
            titles.append(window->title());
        return titles;
    }

    static void click(QWindow *window, const char *button)
    {
        QAccessibleInterface *found = find(QAccessible::queryAccessibleInterface(window), QLatin1String(button));
        ASSERT_TRUE(found) << button;
        QTest::mouseClick(window, Qt::LeftButton, {}, window->mapFromGlobal(found->rect().center()));
        QCoreApplication::processEvents();
    }

    KeptWarnings warnings;
    World world { "2026-03-07 12:00" };
    Appearance appearance { QDBusConnection(u"none"_qs) };
    MenuBarLabel label { world.state() };
    ViewEngine views { world.state(), label, appearance };
    NotificationPanel panel { [this]() -> ViewEngine & { return views; } };
    QSignalSpy activated { &panel, &NotificationPresenter::activated };
    QSignalSpy closed { &panel, &NotificationPresenter::closed };

private:
    static QAccessibleInterface *find(QAccessibleInterface *in, const QString &name)
    {
        if (in->text(QAccessible::Name) == name)
            return in;
        for (int i = 0; i < in->childCount(); ++i) {
            if (QAccessibleInterface *found = find(in->child(i), name))
                return found;
        }
        return nullptr;
    }
};

TEST_F(NotificationPanelTest, JoinsAndSendsAway)
{
    present(u"a"_qs);
    present(u"b"_qs);
    ASSERT_THAT(titles(), ElementsAre(u"<b>&amp; a"_qs, u"<b>&amp; b"_qs));
    for (const QWindow *card : cards())
        EXPECT_TRUE(card->flags() & Qt::WindowDoesNotAcceptFocus);
    const int top = cards().front()->y();
    click(cards().front(), "Join");
    ASSERT_EQ(activated.size(), 1);
    EXPECT_THAT(activated.front(), ElementsAre(u"a"_qs, u"JOIN"_qs, QString()));
    EXPECT_THAT(titles(), ElementsAre(u"<b>&amp; b"_qs));
    EXPECT_EQ(cards().front()->y(), top) << "the others move up";
    click(cards().front(), "Dismiss");
    EXPECT_THAT(cards(), testing::IsEmpty());
    EXPECT_EQ(activated.size(), 1);
    EXPECT_EQ(closed.size(), 2);
}

TEST_F(NotificationPanelTest, WhatFindsNoRoomWaits)
{
    QStringList identifiers;
    for (int i = 0; i < 20; ++i) {
        identifiers.append(QString::number(i));
        present(identifiers.back());
    }
    const auto shown = static_cast<qsizetype>(cards().size());
    EXPECT_GT(shown, 1);
    EXPECT_LT(shown, identifiers.size());
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    EXPECT_LE(cards().back()->geometry().bottom() - CardWindow::kShadowMargin, screen.bottom());
    present(identifiers.front()); // anew: it goes to the end of the queue
    EXPECT_FALSE(titles().contains(u"<b>&amp; 0"_qs));
    for (const QString &identifier : identifiers.mid(1))
        panel.withdraw(identifier);
    EXPECT_THAT(titles(), ElementsAre(u"<b>&amp; 0"_qs));
    EXPECT_EQ(closed.size(), 0) << "whoever withdraws knows";
}

} // namespace
} // namespace mintaro
