#include "ViewModels/CalendarViewModel.h"

#include "support/World.h"

#include <gmock/gmock.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>

namespace mintaro {
namespace {

using testing::ElementsAre;

/// A model, watched, with the clock at a reading in a zone.
struct Grid
{
    explicit Grid(const char *now, const char *zoneName = "UTC", const char *localeIdentifier = "en_GB")
        : clock(at(now, zone(zoneName)))
        , environment(clock, Locale::fromIdentifier(QLatin1String(localeIdentifier)), zone(zoneName))
    {
    }

    void generate(const char *month, const char *selected, WeekStart weekStart = WeekStart::Monday)
    {
        const TimeZone timeZone = environment.timeZone();
        model.generateMonth(at(month, timeZone), at(selected, timeZone), colors, weekStart);
    }

    /// Numbers of the cells for which `flag` holds.
    [[nodiscard]] QStringList numbers(bool DayItem::*flag) const
    {
        QStringList marked;
        for (const DayItem &item : model.dayItems()) {
            if (item.*flag)
                marked.append(item.number);
        }
        return marked;
    }

    FakeClock clock;
    Environment environment;
    QHash<QString, std::vector<Color>> colors;
    CalendarViewModel model { environment };
    QAbstractItemModelTester tester { &model, QAbstractItemModelTester::FailureReportingMode::Fatal };
};

struct MonthCase
{
    const char *name;
    const char *month;
    WeekStart weekStart;
    int leading;
    const char *firstNumber;
    int length;
    const char *lastNumber;
    QList<int> weekNumbers;
    const char *localeIdentifier = "en_GB";
};

class MonthTest : public testing::TestWithParam<MonthCase>
{
};

TEST_P(MonthTest, IsLaidOut)
{
    const MonthCase &row = GetParam();
    Grid grid("2020-01-01", "UTC", row.localeIdentifier);
    grid.generate(row.month, "2020-01-01", row.weekStart);
    const auto &items = grid.model.dayItems();
    ASSERT_EQ(items.size(), 42U);
    const auto first = std::ranges::find(items, true, &DayItem::isCurrentMonth);
    EXPECT_EQ(first - items.begin(), row.leading);
    EXPECT_EQ(std::ranges::count(items, true, &DayItem::isCurrentMonth), row.length);
    EXPECT_EQ(first->number, QStringLiteral("1"));
    EXPECT_EQ((first + row.length - 1)->number, QString::number(row.length));
    EXPECT_EQ(items.front().number, QLatin1String(row.firstNumber));
    EXPECT_EQ(items.back().number, QLatin1String(row.lastNumber));
    EXPECT_EQ(grid.model.weekNumbers(), row.weekNumbers);
}

INSTANTIATE_TEST_SUITE_P(Rows, MonthTest,
    testing::Values(
        MonthCase { "WithoutLeadingCells", "2026-02-10", WeekStart::Sunday, 0, "1", 28, "14", { 5, 6, 7, 8, 9, 10 } },
        MonthCase { "WithSixLeadingCells", "2026-02-10", WeekStart::Monday, 6, "26", 28, "8", { 5, 6, 7, 8, 9, 10 } },
        MonthCase { "March", "2026-03-31 23:59", WeekStart::Sunday, 0, "1", 31, "11", { 9, 10, 11, 12, 13, 14 } },
        MonthCase { "LeapFebruary", "2028-02-01", WeekStart::Monday, 1, "31", 29, "12", { 5, 6, 7, 8, 9, 10 } },
        MonthCase {
            "JanuaryBeginsInLastYearsWeek", "2027-01-15", WeekStart::Monday, 4, "28", 31, "7", { 53, 1, 2, 3, 4, 5 } },
        MonthCase { "JanuaryOfTheLocaleWithoutMinimalDays", "2027-01-15", WeekStart::Sunday, 5, "27", 31, "6",
            { 1, 2, 3, 4, 5, 6 }, "en_US" },
        MonthCase { "DecemberEndsInNextYearsWeek", "2026-12-15", WeekStart::Monday, 1, "30", 31, "10",
            { 49, 50, 51, 52, 53, 1 } }),
    kRowName);

struct PropertyCase
{
    const char *name;
    const char *zoneName;
};

class EveryMonthTest : public testing::TestWithParam<PropertyCase>
{
};

TEST_P(EveryMonthTest, HasSixRowsOfConsecutiveDays)
{
    const TimeZone timeZone = zone(GetParam().zoneName);
    Grid grid("2024-01-01", GetParam().zoneName);
    const Calendar calendar = grid.environment.calendar();
    for (int i = 0; i < 96; ++i) {
        const Date month = *calendar.dateByAdding(Calendar::Component::Month, i, at("2024-01-31 12:00", timeZone));
        for (const WeekStart weekStart : { WeekStart::Sunday, WeekStart::Monday }) {
            SCOPED_TRACE(text(month).toStdString());
            grid.model.generateMonth(month, month, {}, weekStart);
            const auto &items = grid.model.dayItems();
            ASSERT_EQ(items.size(), 42U);
            EXPECT_EQ(grid.model.weekNumbers().size(), 6);
            EXPECT_EQ(calendar.components(items.front().date).weekday, weekStart == WeekStart::Sunday ? 1 : 2);
            for (std::size_t cell = 0; cell < items.size(); ++cell) {
                EXPECT_EQ(items[cell].number, QString::number(calendar.components(items[cell].date).day));
                EXPECT_TRUE(cell == 0
                    || std::chrono::sys_days(calendar.civilDay(items[cell].date))
                        == std::chrono::sys_days(calendar.civilDay(items[cell - 1].date)) + std::chrono::days { 1 });
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, EveryMonthTest,
    testing::Values(PropertyCase { "Usual", "Europe/Rome" }, PropertyCase { "FarEast", "Pacific/Kiritimati" },
        PropertyCase { "NoMidnightInSpring", "Africa/Cairo" },
        PropertyCase { "NoMidnightInAutumn", "America/Santiago" }),
    kRowName);

TEST(CalendarViewModelTest, MarksTodayAndSelectionInTheShownMonthAlone)
{
    Grid grid("2026-03-07 23:30");
    grid.generate("2026-03-15", "2026-03-20 08:00");
    EXPECT_THAT(grid.numbers(&DayItem::isToday), ElementsAre(QStringLiteral("7")));
    EXPECT_THAT(grid.numbers(&DayItem::isSelected), ElementsAre(QStringLiteral("20")));

    // Both fall on leading cells here.
    grid.clock.moment = at("2026-03-30");
    grid.generate("2026-04-15", "2026-03-31");
    EXPECT_THAT(grid.numbers(&DayItem::isToday), ElementsAre());
    EXPECT_THAT(grid.numbers(&DayItem::isSelected), ElementsAre());
}

TEST(CalendarViewModelTest, FollowsTheZone)
{
    Grid grid("2026-03-31 23:30");
    grid.generate("2026-03-31 23:30", "2026-03-31 23:30");
    EXPECT_THAT(grid.numbers(&DayItem::isToday), ElementsAre(QStringLiteral("31")));

    grid.environment.setTimeZone(zone("Europe/Rome"));
    const Date moment = at("2026-03-31 23:30");
    grid.model.generateMonth(moment, moment, {}, WeekStart::Monday);
    EXPECT_THAT(grid.numbers(&DayItem::isToday), ElementsAre(QStringLiteral("1")));
    EXPECT_EQ(grid.model.dayItems()[2].date, at("2026-03-31 22:00")) << "1 April begins at 22:00 UTC";
}

TEST(CalendarViewModelTest, GivesColoursToNeighbouringMonthsToo)
{
    Grid grid("2026-03-07");
    const Color red { 255, 0, 0 };
    grid.colors = { { QStringLiteral("2026-2-28"), { red } }, { QStringLiteral("2026-3-7"), { red, {}, red, {} } } };
    grid.generate("2026-03-01", "2026-03-01");
    EXPECT_THAT(grid.model.dayItems()[5].eventColors, ElementsAre(red));
    EXPECT_EQ(grid.model.dayItems()[12].eventColors.size(), 4U) << "the limit is not this model's";
    EXPECT_THAT(grid.model.data(grid.model.index(5), CalendarViewModel::EventColorsRole).toStringList(),
        ElementsAre(QStringLiteral("#ff0000")));
}

TEST(CalendarViewModelTest, TellsOfTheCellsThatDifferAlone)
{
    Grid grid("2026-03-07");
    const QSignalSpy weeks(&grid.model, &CalendarViewModel::weekNumbersChanged);
    grid.generate("2026-03-07", "2026-03-07");
    QSignalSpy changes(&grid.model, &CalendarViewModel::dataChanged);
    const QSignalSpy resets(&grid.model, &CalendarViewModel::modelReset);
    grid.generate("2026-03-08", "2026-03-07");
    EXPECT_EQ(changes.size(), 0);

    grid.generate("2026-03-07", "2026-03-09");
    ASSERT_EQ(changes.size(), 2) << "the old and the new selection";
    EXPECT_EQ(changes[0][0].toModelIndex().row(), 12);
    EXPECT_EQ(changes[1][0].toModelIndex().row(), 14);

    grid.generate("2026-05-01", "2026-03-09");
    EXPECT_EQ(resets.size(), 0);
    EXPECT_EQ(weeks.size(), 2);
}

TEST(CalendarViewModelTest, SpeaksWholeDates)
{
    Grid grid("2026-03-07");
    grid.colors = { { QStringLiteral("2026-3-7"), { Color {} } } };
    grid.generate("2026-03-07", "2026-03-07");
    const auto name = [&](int cell) {
        return grid.model.data(grid.model.index(cell), CalendarViewModel::AccessibleNameRole).toString();
    };
    EXPECT_EQ(name(13), QStringLiteral("Sunday, 8 March 2026"));
    EXPECT_EQ(name(12), QStringLiteral("Saturday, 7 March 2026, Today, has events"));
}

} // namespace
} // namespace mintaro
