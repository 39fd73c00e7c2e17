#include "support/World.h"

#include <gmock/gmock.h>

namespace mintaro {
namespace {

using testing::ElementsAreArray;

struct AgendaCase
{
    const char *name;
    std::function<void(World &)> fill;
    QStringList agenda; ///< a line for each day
    const char *selected = "2026-03-07 15:00";
};

class AgendaTest : public testing::TestWithParam<AgendaCase>
{
};

TEST_P(AgendaTest, IsComposed)
{
    World world("2026-03-07 12:00", "en_GB", "Europe/Rome");
    world.addCalendar("work");
    GetParam().fill(world);
    AppState &state = world.loaded();
    state.setSelectedDate(at(GetParam().selected, zone("Europe/Rome")));

    QStringList lines;
    for (const DayEvents &day : state.agendaEvents()) {
        EXPECT_EQ(day.date, world.environment.calendar().startOfDay(day.date));
        QString line = day.id(world.environment.calendar()) + u':';
        for (const CalendarEvent &event : day.events)
            line += (event.isReminder ? event.isCompleted ? u" [x]"_qs : u" [ ]"_qs : u" "_qs) + event.title;
        lines.append(line);
    }
    EXPECT_THAT(lines, ElementsAreArray(GetParam().agenda));
}

INSTANTIATE_TEST_SUITE_P(Rows, AgendaTest,
    testing::Values(AgendaCase { "NothingIsNoDays", [](World &) {}, {} },
        AgendaCase { "Day13IsInAndDay14Out",
            [](World &world) {
                world.addEvent("work", "day13", during("20260320T220000Z", "20260320T230000Z"));
                world.addEvent("work", "day14", during("20260320T230000Z", "20260321T000000Z"));
                world.addReminder("work", "r13", "DUE:20260320T225959Z");
                world.addReminder("work", "r14", "DUE;VALUE=DATE:20260321");
            },
            { u"2026-3-20: [ ]r13 day13"_qs } },
        AgendaCase { "DaysBeforeTheSelectedOneAreOut",
            [](World &world) {
                world.addEvent("work", "yesterday", during("20260306T220000Z", "20260306T230000Z"));
                world.addEvent("work", "running", during("20260305T100000Z", "20260309T100000Z"));
                world.addEvent("work", "morning", during("20260306T230000Z", "20260307T000000Z"));
                world.addReminder("work", "overdue", "DUE:20260306T120000Z");
            },
            { u"2026-3-7: morning"_qs } },
        AgendaCase { "AllDayFirstThenByMoment",
            [](World &world) {
                world.addEvent("work", "timed", during("20260308T070000Z", "20260308T080000Z"));
                world.addEvent("work", "whole", allDay("20260308"));
                world.addReminder("work", "nine", "DUE:20260308T080000Z");
                world.addReminder("work", "six", "DUE:20260308T050000Z");
            },
            { u"2026-3-8: whole [ ]six [ ]nine timed"_qs } },
        AgendaCase { "EventBeforeReminderAtTheSameMidnight",
            [](World &world) {
                world.addReminder("work", "midnight", "DUE;VALUE=DATE:20260308");
                world.addEvent("work", "whole", allDay("20260308"));
            },
            { u"2026-3-8: whole [ ]midnight"_qs } },
        AgendaCase { "CompletedStaysAndDatelessIsOut",
            [](World &world) {
                world.addReminder("work", "done", "DUE:20260308T080000Z\nSTATUS:COMPLETED");
                world.addReminder("work", "someday", "PRIORITY:1");
            },
            { u"2026-3-8: [x]done"_qs } },
        AgendaCase { "EndsWithTheFetchedWindowButNotForReminders",
            [](World &world) {
                world.addEvent("work", "april7", during("20260407T100000Z", "20260407T110000Z"));
                world.addEvent("work", "april8", during("20260408T100000Z", "20260408T110000Z"));
                world.addReminder("work", "r8", "DUE;VALUE=DATE:20260408");
            },
            { u"2026-4-7: april7"_qs, u"2026-4-8: [ ]r8"_qs }, "2026-03-31" }),
    kRowName);

} // namespace
} // namespace mintaro
