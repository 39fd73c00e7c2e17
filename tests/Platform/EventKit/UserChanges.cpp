#include "UserChanges.h"

#include "EngineFixture.h"

namespace mintaro {

namespace {

using namespace std::chrono_literals;

EKReminder reminderOf(StoreUser &user)
{
    const std::vector<EKReminder> reminders = user.database().reminders({});
    if (reminders.empty())
        throw EKError("there is no reminder");
    return reminders.front();
}

void save(StoreUser &user, const EKEvent &event, EKSpan span = EKSpan::ThisEvent)
{
    (void)user.store().save(event, span);
}

void changeTitle(StoreUser &user, const QString &uid, std::size_t place, EKSpan span)
{
    EKEvent event = user.event(uid, place);
    event.setTitle(QStringLiteral("A title that was changed, and is so long that its line is folded; \u00e8 vero"));
    save(user, event, span);
}

void changeTime(StoreUser &user, const QString &uid, std::size_t place, EKSpan span)
{
    EKEvent event = user.event(uid, place);
    event.setStartDate(event.startDate() + 90min);
    event.setEndDate(event.endDate() + 2h);
    save(user, event, span);
}

void changeCalendar(StoreUser &user, const QString &uid, std::size_t place, EKSpan span)
{
    EKEvent event = user.event(uid, place);
    event.setCalendar(user.calendar(QStringLiteral("private")));
    save(user, event, span);
}

void create(StoreUser &user)
{
    EKEvent event;
    event.setTitle(QStringLiteral("New"));
    event.setStartDate(utc("2026-05-04T10:00:00Z"));
    event.setEndDate(utc("2026-05-04T11:00:00Z"));
    event.setAlarms({ { std::nullopt, -15min } });
    event.setCalendar(user.calendar(QStringLiteral("work")));
    save(user, event);
}

void complete(StoreUser &user)
{
    EKReminder reminder = reminderOf(user);
    reminder.setCompleted(true);
    reminder.setCompletionDate(utc("2026-03-01T09:00:00Z"));
    user.store().save(reminder);
}

} // namespace

const std::map<std::string, std::function<void(StoreUser &)>> &userChanges()
{
    constexpr EKSpan kThis = EKSpan::ThisEvent;
    constexpr EKSpan kFuture = EKSpan::FutureEvents;
    static const std::map<std::string, std::function<void(StoreUser &)>> changes {
        { "give an event another title", [](StoreUser &user) { changeTitle(user, u"single"_qs, 0, kThis); } },
        { "give a large event another title", [](StoreUser &user) { changeTitle(user, u"large"_qs, 0, kThis); } },
        { "give a series another time", [](StoreUser &user) { changeTime(user, u"series"_qs, 0, kFuture); } },
        { "move one occurrence", [](StoreUser &user) { changeTime(user, u"series"_qs, 2, kThis); } },
        { "move one occurrence to another calendar",
            [](StoreUser &user) { changeCalendar(user, u"series"_qs, 2, kThis); } },
        { "split a series", [](StoreUser &user) { changeTitle(user, u"series"_qs, 4, kFuture); } },
        { "move a split series to another calendar",
            [](StoreUser &user) { changeCalendar(user, u"series"_qs, 4, kFuture); } },
        { "move an event to another calendar", [](StoreUser &user) { changeCalendar(user, u"single"_qs, 0, kThis); } },
        { "move a series to another calendar",
            [](StoreUser &user) { changeCalendar(user, u"series"_qs, 0, kFuture); } },
        { "remove an event", [](StoreUser &user) { user.store().remove(user.event(u"single"_qs), kThis); } },
        { "remove an occurrence", [](StoreUser &user) { user.store().remove(user.event(u"series"_qs, 3), kThis); } },
        { "end a series", [](StoreUser &user) { user.store().remove(user.event(u"series"_qs, 3), kFuture); } },
        { "create an event", create },
        { "complete a reminder", complete },
        { "remove a reminder", [](StoreUser &user) { user.store().remove(reminderOf(user)); } },
    };
    return changes;
}

std::map<std::string, QByteArray> storeBeforeUserChanges()
{
    const QByteArray series
        = calendarOf("BEGIN:VEVENT\nUID:series\nDTSTART;TZID=Europe/Rome:20260302T090000\n"
                     "DTEND;TZID=Europe/Rome:20260302T100000\nRRULE:FREQ=WEEKLY;COUNT=12\nSUMMARY:Series\n"
                     "END:VEVENT\nBEGIN:VEVENT\nUID:series\nRECURRENCE-ID;TZID=Europe/Rome:20260406T090000\n"
                     "DTSTART;TZID=Europe/Rome:20260406T150000\nDTEND;TZID=Europe/Rome:20260406T160000\n"
                     "SUMMARY:Later\nEND:VEVENT");
    const QByteArray description = "DESCRIPTION:" + QByteArray(64 * 1024, 'x') + '\n';
    const auto event = [](const QByteArray &uid, const QByteArray &more) {
        return calendarOf("BEGIN:VEVENT\nUID:" + uid + "\nDTSTART:20260303T090000Z\nDTEND:20260303T100000Z\n"
            + "SUMMARY:" + uid + '\n' + more + "END:VEVENT");
    };
    return {
        { "work/color", "#336699\n" },
        { "work/notes", "somebody's own" },
        { "work/tmpab12cd", "another program's temporary" },
        { "work/single.ics", event("single", {}) },
        { "work/large.ics", event("large", description) },
        { "work/series.ics", series },
        { "work/untouched.ics", event("untouched", "X-PROPERTY:kept\n") },
        { "private/other.ics", event("other", {}) },
        { "private/todo.ics", calendarOf("BEGIN:VTODO\nUID:todo\nDUE:20260303T090000Z\nSUMMARY:Do it\nEND:VTODO") },
    };
}

} // namespace mintaro
