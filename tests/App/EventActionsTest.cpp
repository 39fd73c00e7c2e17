#include "support/World.h"

#include <gmock/gmock.h>

#include <QSignalSpy>

namespace mintaro {
namespace {

using testing::Contains;
using testing::ElementsAre;

class EventActionsTest : public testing::Test
{
protected:
    EventActionsTest()
    {
        world.addCalendar("work");
        world.addEvent("work", "lunch", during("20260308T120000Z", "20260308T130000Z"));
        world.addEvent("work", "daily", during("20260308T090000Z", "20260308T100000Z") + "\nRRULE:FREQ=DAILY;COUNT=4");
        world.loaded();
        world.takeLog();
    }

    /// Of the events that are shown, each as its title and day.
    QStringList shown()
    {
        QStringList titles;
        for (const DayEvents &day : world.state().eventsVM().dayEvents()) {
            for (const CalendarEvent &event : day.events)
                titles.append(event.title + u' ' + text(event.startDate).mid(8, 2));
        }
        return titles;
    }

    CalendarEvent event(const QString &title, const char *start)
    {
        for (const DayEvents &day : world.state().eventsVM().dayEvents()) {
            for (const CalendarEvent &event : day.events) {
                if (event.title == title && event.startDate == at(start))
                    return event;
            }
        }
        throw std::invalid_argument(start);
    }

    /// Gives what the store refuses it with.
    QString saveEvent(const std::optional<EKEvent> &event, const EventDraft &draft, EKSpan span = EKSpan::ThisEvent)
    {
        return QCoro::waitFor(refusal(world.state().saveEvent(event, draft, span)));
    }

    World world { "2026-03-07 12:00" };
};

TEST_F(EventActionsTest, AsksForTheSpanOfWhatRepeatsAndElseForConfirmation)
{
    AppState &state = world.state();
    state.requestDeleteEvent(event(u"lunch"_qs, "2026-03-08 12:00"));
    EXPECT_EQ(state.pendingDeleteEvent()->title, u"lunch"_qs);
    EXPECT_TRUE(state.isShowingDeleteConfirmation() && !state.isShowingSpanPicker());
    state.setShowingDeleteConfirmation(false);
    state.setPendingDeleteEvent(std::nullopt);
    state.requestDeleteEvent(event(u"daily"_qs, "2026-03-09 09:00"));
    EXPECT_EQ(state.pendingDeleteEvent()->title, u"daily"_qs);
    EXPECT_TRUE(state.isShowingSpanPicker() && !state.isShowingDeleteConfirmation());
}

TEST_F(EventActionsTest, DeletesTheOccurrenceThatWasPointedAt)
{
    AppState &state = world.state();
    const CalendarEvent second = event(u"daily"_qs, "2026-03-09 09:00");
    state.requestDeleteEvent(second);
    QCoro::waitFor(state.deleteEvent(second, EKSpan::ThisEvent));
    EXPECT_THAT(shown(), ElementsAre(u"daily 08"_qs, u"lunch 08"_qs, u"daily 10"_qs, u"daily 11"_qs));
    EXPECT_FALSE(state.pendingDeleteEvent());
    EXPECT_THAT(world.takeLog(),
        ElementsAre(u"info EventStore: Event deleted: daily"_qs, u"info AppState: Event deleted successfully"_qs));

    QCoro::waitFor(state.deleteEvent(event(u"daily"_qs, "2026-03-10 09:00"), EKSpan::FutureEvents));
    EXPECT_THAT(shown(), ElementsAre(u"daily 08"_qs, u"lunch 08"_qs));
}

TEST_F(EventActionsTest, DeletingWhatIsGoneIsSilent)
{
    AppState &state = world.state();
    const CalendarEvent lunch = event(u"lunch"_qs, "2026-03-08 12:00");
    QCoro::waitFor(state.deleteEvent(lunch, EKSpan::ThisEvent));
    world.takeLog();
    state.setPendingDeleteEvent(lunch);
    QCoro::waitFor(state.deleteEvent(lunch, EKSpan::ThisEvent));
    EXPECT_FALSE(state.pendingDeleteEvent());
    EXPECT_EQ(state.errorMessage(), QString());
    EXPECT_TRUE(world.takeLog().isEmpty());
}

TEST_F(EventActionsTest, RefusedDeletionIsToldAndRefreshesNothing)
{
    AppState &state = world.state();
    world.backend->onWrite = [] { throw EKError("disk full"); };
    const QSignalSpy fetches(&state.eventsVM(), &EventsViewModel::isLoadingChanged);
    const QSignalSpy messages(&state, &AppState::errorMessageChanged);
    state.requestDeleteEvent(event(u"lunch"_qs, "2026-03-08 12:00"));
    QCoro::waitFor(state.deleteEvent(*state.pendingDeleteEvent(), EKSpan::ThisEvent));
    EXPECT_EQ(state.errorMessage(), u"Failed to delete event: disk full"_qs);
    EXPECT_EQ(messages.size(), 1);
    EXPECT_FALSE(state.pendingDeleteEvent());
    EXPECT_EQ(fetches.size(), 0);
    EXPECT_THAT(world.takeLog(), ElementsAre(u"error AppState: Failed to delete event: disk full"_qs));
}

TEST_F(EventActionsTest, OpensTheEditorOnTheOccurrenceThatWasPointedAtUnlessItIsGone)
{
    AppState &state = world.state();
    const CalendarEvent second = event(u"daily"_qs, "2026-03-09 09:00");
    QCoro::waitFor(state.openEditEvent(second));
    ASSERT_EQ(world.eventEditor.opened.size(), 1U);
    EXPECT_EQ(world.eventEditor.opened.back()->startDate(), second.startDate);
    EXPECT_EQ(state.editingEvent()->startDate(), second.startDate);
    state.openNewEvent();
    ASSERT_EQ(world.eventEditor.opened.size(), 2U);
    EXPECT_FALSE(world.eventEditor.opened.back() || state.editingEvent());

    const CalendarEvent lunch = event(u"lunch"_qs, "2026-03-08 12:00");
    QCoro::waitFor(state.deleteEvent(lunch, EKSpan::ThisEvent));
    QCoro::waitFor(state.openEditEvent(lunch));
    EXPECT_EQ(world.eventEditor.opened.size(), 2U);
}

TEST_F(EventActionsTest, KeepsARefusedDraftForItsEventOnceAndOnlyWhatTheUserChanged)
{
    AppState &state = world.state();
    const EKEvent lunch = event(u"lunch"_qs, "2026-03-08 12:00").ekEvent;
    EventDraft edited = EventDraft::fromEvent(lunch);
    edited.title = u"brunch"_qs;
    state.keepRejectedDraft(lunch, edited);
    state.keepRejectedDraft({}, { .title = u"new"_qs });

    world.addEvent("work", "lunch", during("20260308T120000Z", "20260308T130000Z") + "\nLOCATION:bar");
    world.tellOfChange();
    QCoro::waitFor(state.refreshAll());
    EXPECT_FALSE(state.takeRejectedDraft(event(u"daily"_qs, "2026-03-08 09:00").ekEvent));
    const auto restored = state.takeRejectedDraft(event(u"lunch"_qs, "2026-03-08 12:00").ekEvent);
    ASSERT_TRUE(restored);
    EXPECT_EQ(restored->title, u"brunch"_qs);
    EXPECT_EQ(restored->location, u"bar"_qs);
    EXPECT_FALSE(state.takeRejectedDraft(lunch));
    EXPECT_EQ(state.takeRejectedDraft({})->title, u"new"_qs);
}

TEST_F(EventActionsTest, ClosingThePopoverTakesItsQuestionsAlong)
{
    AppState &state = world.state();
    state.setPopoverVisible(true);
    state.requestDeleteEvent(event(u"lunch"_qs, "2026-03-08 12:00"));
    state.tellOfFailure(u"no"_qs);
    state.setPopoverVisible(false);
    EXPECT_FALSE(state.isShowingDeleteConfirmation() || state.pendingDeleteEvent());
    EXPECT_EQ(state.errorMessage(), QString());
}

TEST_F(EventActionsTest, SavesANewEventWhole)
{
    const EventDraft trip { .title = u"Trip"_qs,
        .startDate = at("2026-03-12"),
        .endDate = at("2026-03-13 10:00"),
        .isAllDay = true,
        .location = u"Ostia"_qs,
        .recurrenceRule = EKRecurrenceRule { "FREQ=WEEKLY;COUNT=2" },
        .alarm = EKAlarm { {}, -std::chrono::hours { 1 } } };
    EXPECT_EQ(saveEvent({}, trip), QString());
    EXPECT_THAT(world.takeLog(),
        ElementsAre(u"info EventStore: Event saved: Trip"_qs, u"info AppState: Event saved successfully"_qs));
    EXPECT_THAT(shown(), Contains(u"Trip 19"_qs));
    const EKEvent saved = event(u"Trip"_qs, "2026-03-12").ekEvent;
    EXPECT_EQ(text(saved.endDate()), u"2026-03-13T23:59:59Z"_qs);
    EXPECT_EQ(saved.location(), u"Ostia"_qs);
    EXPECT_FALSE(saved.hasNotes());
    EXPECT_EQ(saved.alarms(), (std::vector { EKAlarm { {}, -std::chrono::hours { 1 } } }));
}

TEST_F(EventActionsTest, SavingSetsRuleAndAlarmWhole)
{
    world.addEvent("work", "walk",
        during("20260309T120000Z", "20260309T130000Z")
            + "\nLOCATION:park\nDESCRIPTION:bring\nRRULE:FREQ=DAILY;COUNT=2\n"
              "BEGIN:VALARM\nTRIGGER:-PT5M\nACTION:DISPLAY\nEND:VALARM");
    world.tellOfChange();
    QCoro::waitFor(world.state().refreshAll());
    const EventDraft once {
        .title = u"walk"_qs, .startDate = at("2026-03-09 15:00"), .endDate = at("2026-03-09 16:00")
    };
    EXPECT_EQ(saveEvent(event(u"walk"_qs, "2026-03-09 12:00").ekEvent, once, EKSpan::FutureEvents), QString());
    const EKEvent saved = event(u"walk"_qs, "2026-03-09 15:00").ekEvent;
    EXPECT_FALSE(saved.location() || saved.notes() || saved.hasRecurrenceRules() || !saved.alarms().empty());
    EXPECT_THAT(shown(), testing::Not(Contains(u"walk 10"_qs)));
}

TEST_F(EventActionsTest, RefusedSaveIsTheEditorsToTell)
{
    const QSignalSpy fetches(&world.state().eventsVM(), &EventsViewModel::isLoadingChanged);
    const EventDraft backwards {
        .title = u"x"_qs, .startDate = at("2026-03-09 16:00"), .endDate = at("2026-03-09 15:00")
    };
    EXPECT_EQ(saveEvent({}, backwards), u"The event ends before it starts."_qs);
    EXPECT_TRUE(world.takeLog().isEmpty());
    EXPECT_EQ(world.state().errorMessage(), QString());
    EXPECT_EQ(fetches.size(), 0);
}

} // namespace
} // namespace mintaro
