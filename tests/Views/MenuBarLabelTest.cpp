#include "Views/Main/MenuBarLabel.h"

#include "support/World.h"

#include <gtest/gtest.h>

#include <QRegularExpression>
#include <QSignalSpy>

namespace mintaro {
namespace {

struct ShorteningCase
{
    const char *name;
    int limit;
    const char *title;
    const char *shown;
};

class ShorteningTest : public testing::TestWithParam<ShorteningCase>
{
};

TEST_P(ShorteningTest, CutsBetweenCharacters)
{
    World world("2026-03-07 12:00");
    world.addCalendar("work");
    world.addEvent(
        "work", "e", during("20260307T130000Z", "20260307T140000Z") + "\nSUMMARY:" + QByteArray(GetParam().title));
    world.defaults.setInteger(GetParam().limit, u"MenuBarMaxTitleLength"_qs);
    const MenuBarLabel label(world.loaded());
    EXPECT_EQ(label.title(), QString::fromUtf8(GetParam().shown));
}

INSTANTIATE_TEST_SUITE_P(Rows, ShorteningTest,
    testing::Values(ShorteningCase { "ExactLimit", 5, "abcde", "abcde" },
        ShorteningCase { "OneAboveTheLimit", 5, "abcdef", "abcd…" }, ShorteningCase { "LimitOne", 1, "ab", "…" },
        ShorteningCase { "LimitOneHolds", 1, "a", "a" },
        ShorteningCase { "NoLimitIsTwenty", 0, "abcdefghijklmnopqrstu", "abcdefghijklmnopqrs…" },
        ShorteningCase { "NegativeLimitIsTwenty", -1, "abcdefghijklmnopqrst", "abcdefghijklmnopqrst" },
        ShorteningCase { "CombiningMarks", 3,
            "e\xcc\x81"
            "e\xcc\x81"
            "e\xcc\x81",
            "e\xcc\x81"
            "e\xcc\x81"
            "e\xcc\x81" },
        ShorteningCase { "CombiningMarksCut", 2,
            "e\xcc\x81"
            "e\xcc\x81"
            "e\xcc\x81",
            "e\xcc\x81…" },
        ShorteningCase { "Families", 2, "👨‍👩‍👧‍👦👨‍👩‍👧",
            "👨‍👩‍👧‍👦👨‍👩‍👧" },
        ShorteningCase {
            "FamiliesCut", 2, "👨‍👩‍👧‍👦👨‍👩‍👧👍", "👨‍👩‍👧‍👦…" },
        ShorteningCase { "SkinTones", 2, "👍🏽👍🏿", "👍🏽👍🏿" },
        ShorteningCase { "Flags", 2, "🇮🇹🇩🇪", "🇮🇹🇩🇪" }, ShorteningCase { "FlagsCut", 2, "🇮🇹🇩🇪🇫🇷", "🇮🇹…" }),
    kRowName);

class MenuBarLabelTest : public testing::Test
{
protected:
    MenuBarLabelTest() { world.addCalendar("work"); }

    void addReview(const QByteArray &lines = {})
    {
        world.addEvent("work", "Review", during("20260307T123000Z", "20260307T130000Z") + lines);
    }

    World world { "2026-03-07 12:00" };
};

TEST_F(MenuBarLabelTest, HasDateAloneWithoutEvent)
{
    const MenuBarLabel label(world.loaded());
    EXPECT_EQ(label.text(), u"7 Mar"_qs);
    EXPECT_EQ(label.day(), u"7"_qs);
    EXPECT_FALSE(label.showsNextEvent());
    EXPECT_TRUE(label.countdown().isEmpty() && label.meetingSymbol().isEmpty());
}

TEST_F(MenuBarLabelTest, HasItemsOfTheNextEvent)
{
    addReview("\nLOCATION:https://zoom.us/j/1");
    const MenuBarLabel label(world.loaded());
    EXPECT_EQ(label.text(), u"7 Mar \u00b7 Review in 30 min"_qs);
    EXPECT_EQ(label.title(), u"Review"_qs);
    EXPECT_EQ(label.countdown(), u"in 30 min"_qs);
    EXPECT_EQ(label.meetingSymbol(), u"video.fill"_qs);
    EXPECT_EQ(label.toolTip(), u"Review\n12:30 - 13:00"_qs);
}

struct ChangeCase
{
    const char *name;
    const char *key;
    const char *value;
    const char *text;
    const char *symbol = "video.fill";
};

class LabelPreferenceTest : public MenuBarLabelTest, public testing::WithParamInterface<ChangeCase>
{
};

TEST_P(LabelPreferenceTest, TakesEffectAtOnce)
{
    addReview("\nLOCATION:https://zoom.us/j/1");
    MenuBarLabel label(world.loaded());
    const QSignalSpy changes(&label, &MenuBarLabel::changed);
    world.defaults.setString(QLatin1String(GetParam().value), QLatin1String(GetParam().key));
    EXPECT_EQ(label.text(), QString::fromUtf8(GetParam().text));
    EXPECT_EQ(label.meetingSymbol(), QLatin1String(GetParam().symbol));
    EXPECT_GE(changes.size(), 1);
}

INSTANTIATE_TEST_SUITE_P(Rows, LabelPreferenceTest,
    testing::Values(ChangeCase { "DatePattern", "MenuBarDateFormat", "EEEE", "Saturday · Review in 30 min" },
        ChangeCase { "DateHidden", "ShowDateInMenuBar", "false", "Review in 30 min" },
        ChangeCase { "EventHidden", "ShowNextEventInMenuBar", "false", "7 Mar", "" },
        ChangeCase { "Symbol", "ShowMeetingIconInMenuBar", "false", "7 Mar · Review in 30 min", "" }),
    kRowName);

TEST_F(MenuBarLabelTest, TitleLengthAndCountdownFormatWaitForTheNextTick)
{
    addReview();
    MenuBarLabel label(world.loaded());
    world.defaults.setInteger(3, u"MenuBarMaxTitleLength"_qs);
    world.defaults.setString(u"absolute"_qs, u"CountdownFormat"_qs);
    EXPECT_EQ(label.text(), u"7 Mar · Review in 30 min"_qs);
    Q_EMIT world.environment.significantTimeChange();
    EXPECT_EQ(label.text(), u"7 Mar · Re… 12:30"_qs);
}

TEST_F(MenuBarLabelTest, AnyDatePatternGivesOneLineOfBoundedLength)
{
    MenuBarLabel label(world.loaded());
    const QStringList patterns { QString(10'000, u'y'), QString(10'000, u'E'), u"EEEE G zzzz "_qs.repeated(1000),
        QString(9'999, u'\''), u"'"_qs, u"d\n\r\tMMM\u2028y"_qs, u"\U0001F4C5"_qs.repeated(9'999), u"j%1$s{}[]b"_qs };
    for (const QString &pattern : patterns) {
        world.defaults.setString(pattern, u"MenuBarDateFormat"_qs);
        EXPECT_LE(label.text().size(), 1000) << pattern.left(20).toStdString();
        EXPECT_FALSE(label.text().contains(QRegularExpression(u"[\\x{0}-\\x{1f}\\x{2028}]"_qs)));
        EXPECT_TRUE(label.text().isValidUtf16());
    }
    world.defaults.setString(u"d 'of' MMM"_qs, u"MenuBarDateFormat"_qs);
    EXPECT_EQ(label.text(), u"7 of Mar"_qs);
}

TEST_F(MenuBarLabelTest, RollsOverWhenTheDayTurns)
{
    addReview();
    MenuBarLabel label(world.loaded());
    world.clock.moment = at("2026-03-08 00:00");
    Q_EMIT world.environment.significantTimeChange();
    EXPECT_EQ(label.text(), u"8 Mar"_qs);
    EXPECT_EQ(label.day(), u"8"_qs);
}

TEST_F(MenuBarLabelTest, LoadsAndWatchesWhenItAppears)
{
    AppState &state = world.state();
    MenuBarLabel label(state);
    QSignalSpy changes(&label, &MenuBarLabel::changed);
    label.appear();
    QSignalSpy refreshes(&state, &AppState::nextEventChanged);
    ASSERT_TRUE(refreshes.wait());
    EXPECT_TRUE(state.hasCalendarAccess());
    addReview();
    world.tellOfChange();
    ASSERT_TRUE(changes.wait());
    EXPECT_EQ(label.title(), u"Review"_qs);
}

} // namespace
} // namespace mintaro
