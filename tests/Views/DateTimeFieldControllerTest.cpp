#include "Views/EventEditor/DateTimeFieldController.h"
#include "Views/EventEditor/MonthPopupController.h"

#include "support/World.h"

#include <gmock/gmock.h>

#include <QSignalSpy>

namespace mintaro {
namespace {

using Entry = DateTimeFieldController::Entry;

/// In a zone with clock changes: on 29 March 2026 from 2 to 3, on 25 October from 3 back to 2.
struct DateTimeFieldControllerTest : testing::Test
{
    explicit DateTimeFieldControllerTest(const char *locale = "en_GB")
        : world("2026-03-07 12:00", locale, "Europe/Rome")
    {
        field.setAppState(&world.state());
    }

    void set(const char *reading) { field.setDate(at(reading, zone("Europe/Rome"))); }
    [[nodiscard]] QString shown() const { return field.dayText() + u' ' + field.timeText(); }

    World world;
    DateTimeFieldController field;
};

TEST_F(DateTimeFieldControllerTest, AppliesWhatWasTyped)
{
    const struct
    {
        const char *from;
        Entry entry;
        const char *text;
        const char *expected;
    } rows[] = {
        { "2026-11-24 15:30", Entry::Day, "1/12", "01/12/2026 15:30" },
        { "2026-11-24 15:30", Entry::Time, "930", "24/11/2026 09:30" },
        { "2026-11-24 15:30", Entry::Day, "31/11", "24/11/2026 15:30" },
        { "2026-11-24 15:30", Entry::Time, "25:00", "24/11/2026 15:30" },
        // In the gap of a clock change.
        { "2026-03-29 15:30", Entry::Time, "2:30", "29/03/2026 03:30" },
        { "2026-03-28 02:30", Entry::Day, "29", "29/03/2026 03:30" },
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(testing::Message() << row.from << ' ' << row.text);
        set(row.from);
        const QString before = shown();
        const QSignalSpy edits(&field, &DateTimeFieldController::edited);
        field.apply(row.entry, QLatin1String(row.text));
        EXPECT_EQ(shown(), QLatin1String(row.expected));
        EXPECT_EQ(edits.size(), shown() == before ? 0 : 1);
    }
}

TEST_F(DateTimeFieldControllerTest, KeepsWhatAnEqualTextDoesNotSay)
{
    const Date second = at("2026-10-25 01:30") + std::chrono::seconds { 7 };
    field.setDate(second);
    EXPECT_EQ(shown(), u"25/10/2026 02:30"_qs);
    field.apply(Entry::Time, field.timeText());
    field.apply(Entry::Day, field.dayText());
    EXPECT_EQ(field.date(), second);
}

TEST_F(DateTimeFieldControllerTest, StepsThePartAtTheCursor)
{
    const struct
    {
        const char *from;
        Entry entry;
        int cursor;
        int steps;
        bool isLong;
        const char *expected;
    } rows[] = {
        { "2026-11-30 15:30", Entry::Day, 0, 1, false, "01/12/2026 15:30" },
        { "2026-11-30 15:30", Entry::Day, 2, -1, true, "23/11/2026 15:30" },
        { "2026-10-31 15:30", Entry::Day, 3, 1, false, "30/11/2026 15:30" },
        { "2024-02-29 15:30", Entry::Day, 10, 1, false, "28/02/2025 15:30" },
        { "2026-11-30 23:30", Entry::Time, 0, 1, false, "01/12/2026 00:30" },
        { "2026-11-30 15:50", Entry::Time, 3, 1, true, "30/11/2026 16:05" },
        { "2026-03-29 01:30", Entry::Time, 0, 1, false, "29/03/2026 03:30" },
        { "2026-10-25 02:30", Entry::Time, 1, 1, false, "25/10/2026 02:30" },
        { "9999-12-31 15:30", Entry::Day, 0, 1, false, "31/12/9999 15:30" },
        { "9999-12-31 23:30", Entry::Time, 0, 1, false, "31/12/9999 23:30" },
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(testing::Message() << row.from << " at " << row.cursor);
        set(row.from);
        const QString text = row.entry == Entry::Day ? field.dayText() : field.timeText();
        field.step(row.entry, text, row.cursor, row.steps, row.isLong);
        EXPECT_EQ(shown(), QLatin1String(row.expected));
    }
}

TEST_F(DateTimeFieldControllerTest, StepsFromWhatIsBeingTyped)
{
    set("2026-11-24 15:30");
    const TextRange month = field.step(Entry::Day, u"3/4"_qs, 3, 1, false);
    EXPECT_EQ(shown(), u"03/05/2026 15:30"_qs);
    EXPECT_EQ(month.start, 3);
    EXPECT_EQ(month.end, 5);
    EXPECT_EQ(field.step(Entry::Day, u"3/"_qs + u"x"_qs, 3, 1, false).end, 0);
    EXPECT_EQ(field.step(Entry::Day, QString(), 0, 1, false).end, 0);
    EXPECT_EQ(shown(), u"03/05/2026 15:30"_qs);
}

TEST_F(DateTimeFieldControllerTest, FollowsTheZone)
{
    set("2026-11-24 15:30");
    const QSignalSpy texts(&field, &DateTimeFieldController::textsChanged);
    world.environment.setTimeZone(zone("Asia/Tokyo"));
    EXPECT_EQ(shown(), u"24/11/2026 23:30"_qs);
    EXPECT_GE(texts.size(), 1);
}

struct TwelveHourFieldTest : DateTimeFieldControllerTest
{
    TwelveHourFieldTest()
        : DateTimeFieldControllerTest("en_US")
    {
    }
};

TEST_F(TwelveHourFieldTest, StepsTheHalfOfTheDay)
{
    set("2026-11-24 15:30");
    EXPECT_EQ(shown(), u"11/24/2026 3:30 PM"_qs);
    field.step(Entry::Time, field.timeText(), 6, 1, false);
    EXPECT_EQ(shown(), u"11/24/2026 3:30 AM"_qs);
    field.step(Entry::Time, field.timeText(), 5, -1, true);
    EXPECT_EQ(shown(), u"11/24/2026 3:30 PM"_qs);
}

TEST_F(DateTimeFieldControllerTest, MonthPopupMovesByDaysAndMonths)
{
    MonthPopupController popup;
    popup.setAppState(&world.state());
    popup.setHighlightedDay(at("2026-01-31 15:30", zone("Europe/Rome")));
    EXPECT_EQ(popup.title(), u"January 2026"_qs);
    popup.moveByMonths(1);
    EXPECT_EQ(popup.title(), u"February 2026"_qs);
    popup.moveByDays(1);
    EXPECT_EQ(popup.title(), u"March 2026"_qs);
    // The first cell, in weeks that begin with Monday.
    popup.highlight(0);
    EXPECT_EQ(popup.highlightedDay(), at("2026-02-23", zone("Europe/Rome")));
    popup.highlight(99);
    set("2026-11-24 15:30");
    field.moveToDay(popup.highlightedDay());
    EXPECT_EQ(shown(), u"23/02/2026 15:30"_qs);
}

} // namespace
} // namespace mintaro
