#include "EngineFixture.h"

#include <QRegularExpression>

#include <gmock/gmock.h>

namespace mintaro {
namespace {

using namespace std::chrono;
using testing::ElementsAreArray;

/// What a user does to one occurrence.
struct Action
{
    const char *name;
    /// The lines of the objects' components.
    QByteArray components;
    /// The start of the occurrence.
    const char *at;
    EKSpan span;
    /// Null: remove.
    std::function<void(EKEvent &)> change;
    /// Each "start-end title", all-day ones as "start title".
    std::vector<std::string> shown;
    std::vector<QByteArray> written {};
    std::vector<QByteArray> gone {};
};

constexpr EKSpan kThis = EKSpan::ThisEvent;
constexpr EKSpan kFuture = EKSpan::FutureEvents;

QByteArray event(const QByteArray &lines)
{
    return "BEGIN:VEVENT\nUID:one\n" + lines + "\nEND:VEVENT";
}

QByteArray daily(const QByteArray &lines)
{
    return event(
        "SUMMARY:Old\nDTSTART;TZID=Europe/Rome:20260302T100000\nDTEND;TZID=Europe/Rome:20260302T110000\n" + lines);
}

std::function<void(EKEvent &)> titled(const char *title)
{
    return [title](EKEvent &each) { each.setTitle(QString::fromUtf8(title)); };
}

std::function<void(EKEvent &)> moved(seconds by)
{
    return [by](EKEvent &each) {
        each.setStartDate(each.startDate() + by);
        each.setEndDate(each.endDate() + by);
    };
}

std::function<void(EKEvent &)> ruled(const char *rule)
{
    return [rule](EKEvent &each) {
        each.setRecurrenceRules(*rule ? std::vector<EKRecurrenceRule> { { rule } } : std::vector<EKRecurrenceRule> {});
    };
}

const QByteArray kException
    = "\nEND:VEVENT\nBEGIN:VEVENT\nUID:one\nRECURRENCE-ID;TZID=Europe/Rome:20260304T100000\n"
      "SUMMARY:Moved\nDTSTART;TZID=Europe/Rome:20260304T150000\nDTEND;TZID=Europe/Rome:20260304T160000";

const QByteArray kRange
    = QByteArray(kException).replace("RECURRENCE-ID", "RECURRENCE-ID;RANGE=THISANDFUTURE").replace("Moved", "Later");

const std::vector<Action> kActions {
    { "single: title", daily("X-OTHER;P=\"a:b\":keep"), "20260302T090000Z", kThis, titled("New"), { "0302T09-10 New" },
        { "X-OTHER;P=\"a:b\":keep\n", "DTSTART;TZID=Europe/Rome:20260302T100000\n" } },
    { "single: moved", daily("DURATION:PT1H"), "20260302T090000Z", kThis, moved(hours { 2 }), { "0302T11-12 Old" },
        { "DTSTART;TZID=Europe/Rome:20260302T120000\n", "SEQUENCE:1" } },
    { "single: DURATION stays", event("SUMMARY:Old\nDTSTART:20260302T090000Z\nDURATION:PT1H"), "20260302T090000Z",
        kThis, moved(hours { 24 }), { "0303T09-10 Old" }, { "DTSTART:20260303T090000Z\n", "DURATION:PT1H\n" },
        { "DTEND" } },
    { "single: removed", daily(""), "20260302T090000Z", kThis, nullptr, {} },
    { "single: into a series", daily(""), "20260302T090000Z", kThis, ruled("FREQ=DAILY;COUNT=2"),
        { "0302T09-10 Old", "0303T09-10 Old" } },
    { "single: the rule does not give its start", daily(""), "20260302T090000Z", kThis,
        ruled("FREQ=WEEKLY;BYDAY=TU;COUNT=2"), { "0302T09-10 Old", "0303T09-10 Old", "0310T09-10 Old" } },
    { "single: to a whole day", daily(""), "20260302T090000Z", kThis, [](EKEvent &each) { each.setAllDay(true); },
        { "0302 Old" }, { "DTSTART;VALUE=DATE:20260302\n", "DTEND;VALUE=DATE:20260303\n" } },
    { "whole days: longer", event("SUMMARY:Old\nDTSTART;VALUE=DATE:20260302"), "20260301T230000Z", kThis,
        [](EKEvent &each) { each.setEndDate(each.endDate() + days { 2 }); }, { "0302-0304 Old" },
        { "DTEND;VALUE=DATE:20260305\n" } },
    { "whole day: to a time", event("SUMMARY:Old\nDTSTART;VALUE=DATE:20260302"), "20260301T230000Z", kThis,
        [](EKEvent &each) {
            each.setAllDay(false);
            each.setStartDate(utc("20260302T090000Z"));
            each.setEndDate(utc("20260302T093000Z"));
        },
        { "0302T09-0930 Old" }, { "DTSTART;TZID=Europe/Rome:20260302T100000", "BEGIN:VTIMEZONE" } },

    { "this: title", daily("RRULE:FREQ=DAILY;COUNT=3"), "20260303T090000Z", kThis, titled("New"),
        { "0302T09-10 Old", "0303T09-10 New", "0304T09-10 Old" },
        { "RECURRENCE-ID;TZID=Europe/Rome:20260303T100000\n", "RRULE:FREQ=DAILY;COUNT=3\n" } },
    { "this: moved", daily("RRULE:FREQ=DAILY;COUNT=3"), "20260303T090000Z", kThis, moved(hours { 3 }),
        { "0302T09-10 Old", "0303T12-13 Old", "0304T09-10 Old" } },
    { "this: an exception changes", daily("RRULE:FREQ=DAILY;COUNT=4" + kException), "20260304T140000Z", kThis,
        titled("New"), { "0302T09-10 Old", "0303T09-10 Old", "0304T14-15 New", "0305T09-10 Old" } },
    { "this: removed", daily("RRULE:FREQ=DAILY;COUNT=3"), "20260303T090000Z", kThis, nullptr,
        { "0302T09-10 Old", "0304T09-10 Old" }, { "EXDATE;TZID=Europe/Rome:20260303T100000\n" } },
    { "this: a whole day removed", event("SUMMARY:Old\nDTSTART;VALUE=DATE:20260302\nRRULE:FREQ=DAILY;COUNT=3"),
        "20260302T230000Z", kThis, nullptr, { "0302 Old", "0304 Old" }, { "EXDATE;VALUE=DATE:20260303\n" } },
    { "this: an exception removed", daily("RRULE:FREQ=DAILY;COUNT=4" + kException), "20260304T140000Z", kThis, nullptr,
        { "0302T09-10 Old", "0303T09-10 Old", "0305T09-10 Old" }, {}, { "Moved" } },
    { "this: the last one removed", daily("RRULE:FREQ=DAILY;COUNT=2\nEXDATE;TZID=Europe/Rome:20260302T100000"),
        "20260303T090000Z", kThis, nullptr, {} },
    { "this: another rule", daily("RRULE:FREQ=DAILY;COUNT=3"), "20260303T090000Z", kThis,
        ruled("FREQ=DAILY;INTERVAL=7;COUNT=2"),
        { "0302T09-10 Old", "0303T09-10 Old", "0304T09-10 Old", "0310T09-10 Old" } },
    { "this: an RDATE removed", daily("RDATE;TZID=Europe/Rome:20260305T100000"), "20260305T090000Z", kThis, nullptr,
        { "0302T09-10 Old" } },

    { "this: an exception that speaks for later ones is removed", daily("RRULE:FREQ=DAILY;COUNT=4" + kRange),
        "20260304T140000Z", kThis, nullptr, { "0302T09-10 Old", "0303T09-10 Old", "0305T14-15 Later" },
        { "RECURRENCE-ID;TZID=Europe/Rome;RANGE=THISANDFUTURE:20260305T100000\n" } },
    { "this: one that another exception speaks for", daily("RRULE:FREQ=DAILY;COUNT=4" + kRange), "20260305T140000Z",
        kThis, titled("New"), { "0302T09-10 Old", "0303T09-10 Old", "0304T14-15 Later", "0305T14-15 New" } },

    { "future: COUNT is divided", daily("RRULE:FREQ=DAILY;COUNT=5"), "20260304T090000Z", kFuture, titled("New"),
        { "0302T09-10 Old", "0303T09-10 Old", "0304T09-10 New", "0305T09-10 New", "0306T09-10 New" },
        { "RRULE:FREQ=DAILY;COUNT=2\n", "RRULE:FREQ=DAILY;COUNT=3\n" } },
    { "future: UNTIL", daily("RRULE:FREQ=DAILY;UNTIL=20260305T090000Z"), "20260304T090000Z", kFuture,
        moved(hours { 1 }), { "0302T09-10 Old", "0303T09-10 Old", "0304T10-11 Old", "0305T10-11 Old" },
        { "UNTIL=20260304T085959Z", "UNTIL=20260305T100000Z" } },
    { "future: whole days end the day before",
        event("SUMMARY:Old\nDTSTART;VALUE=DATE:20260302\nRRULE:FREQ=DAILY;UNTIL=20260305"), "20260303T230000Z", kFuture,
        titled("New"), { "0302 Old", "0303 Old", "0304 New", "0305 New" }, { "UNTIL=20260303\n" } },
    { "future: exceptions before and after",
        daily("RRULE:FREQ=DAILY;COUNT=4" + kException
            + "\nEND:VEVENT\nBEGIN:VEVENT\nUID:one\nRECURRENCE-ID;TZID=Europe/Rome:20260302T100000\nSUMMARY:First\n"
              "DTSTART;TZID=Europe/Rome:20260302T080000\nDURATION:PT1H"),
        "20260303T090000Z", kFuture, titled("New"),
        { "0302T07-08 First", "0303T09-10 New", "0304T14-15 Moved", "0305T09-10 New" } },
    { "future: lists go along",
        daily("RRULE:FREQ=DAILY;COUNT=4\nRDATE;TZID=Europe/Rome:20260301T100000,20260310T100000\n"
              "EXDATE;TZID=Europe/Rome:20260302T100000,20260305T100000"),
        "20260304T090000Z", kFuture, moved(hours { 1 }),
        { "0301T09-10 Old", "0303T09-10 Old", "0304T10-11 Old", "0310T10-11 Old" } },
    { "future: a weekday turns", daily("RRULE:FREQ=WEEKLY;BYDAY=MO;COUNT=3"), "20260309T090000Z", kFuture,
        moved(hours { 24 }), { "0302T09-10 Old", "0310T09-10 Old", "0317T09-10 Old" }, { "BYDAY=TU" } },
    { "future: from the first, all", daily("RRULE:FREQ=DAILY;COUNT=3" + kException), "20260302T090000Z", kFuture,
        moved(hours { 1 }), { "0302T10-11 Old", "0303T10-11 Old", "0304T14-15 Moved" },
        { "RECURRENCE-ID;TZID=Europe/Rome:20260304T110000\n" } },
    { "future: from an extra date",
        daily("RRULE:FREQ=WEEKLY;INTERVAL=2;COUNT=3\nRDATE;TZID=Europe/Rome:20260311T100000"), "20260311T090000Z",
        kFuture, titled("New"), { "0302T09-10 Old", "0311T09-10 New", "0316T09-10 New", "0330T08-09 New" } },
    { "future: not from the first, for a date was added before it",
        daily("RRULE:FREQ=DAILY;COUNT=2\nRDATE;TZID=Europe/Rome:20260220T100000"), "20260302T090000Z", kFuture,
        titled("New"), { "0220T09-10 Old", "0302T09-10 New", "0303T09-10 New" } },
    { "future: removed", daily("RRULE:FREQ=DAILY;COUNT=5" + kException), "20260303T090000Z", kFuture, nullptr,
        { "0302T09-10 Old" } },
    { "future: all removed", daily("RRULE:FREQ=DAILY;COUNT=5" + kException), "20260302T090000Z", kFuture, nullptr, {} },
    { "future: back to one", daily("RRULE:FREQ=DAILY;COUNT=5" + kException), "20260302T090000Z", kFuture, ruled(""),
        { "0302T09-10 Old" }, {}, { "RRULE", "Moved", "BEGIN:VTIMEZONE" } },
    { "future: the rest becomes one", daily("RRULE:FREQ=DAILY;COUNT=5"), "20260304T090000Z", kFuture, ruled(""),
        { "0302T09-10 Old", "0303T09-10 Old", "0304T09-10 Old" } },
    { "future: whole days", daily("RRULE:FREQ=DAILY;COUNT=3"), "20260303T090000Z", kFuture,
        [](EKEvent &each) { each.setAllDay(true); }, { "0302T09-10 Old", "0303 Old", "0304 Old" } },
    { "an exception alone",
        event("SUMMARY:Old\nRECURRENCE-ID:20260303T090000Z\nDTSTART:20260303T100000Z\nDTEND:20260303T110000Z"),
        "20260303T100000Z", kFuture, titled("New"), { "0303T10-11 New" } },
};

class EventWritingTest : public EngineFixture
{
protected:
    /// "0302T09-1030 Title"; of whole days "0302 Title" or "0302-0304 Title".
    static std::string shown(const EKEvent &event)
    {
        const TimeZone viewer = *TimeZone::named(QStringLiteral("Europe/Rome"));
        const auto day = [&](Date date) {
            return text(Date { viewer.toLocal(floor<seconds>(date)).time_since_epoch() }).mid(4, 4);
        };
        const auto clock = [](Date date) {
            return text(date).mid(9, 4).replace(QRegularExpression(QStringLiteral("00$")), QString());
        };
        QString when = day(event.startDate());
        if (!event.isAllDay())
            when = text(event.startDate()).mid(4, 5) + clock(event.startDate()) + u'-' + clock(event.endDate());
        else if (day(event.endDate()) != when)
            when += u'-' + day(event.endDate());
        return (when + u' ' + event.title().value_or(QString())).toStdString();
    }

    std::vector<std::string> shown()
    {
        std::vector<std::string> all;
        for (const EKEvent &each : events("20260201T000000Z", "20270101T000000Z"))
            all.push_back(shown(each));
        return all;
    }

    EKEvent at(const char *start)
    {
        for (const EKEvent &each : events()) {
            if (each.startDate() == utc(start))
                return each;
        }
        ADD_FAILURE() << "nothing at " << start;
        return {};
    }

    QByteArray texts() const
    {
        QByteArray all;
        for (const auto &[name, object] : backend->contents.at(QStringLiteral("work")))
            all += object.text;
        return all;
    }
};

class EventActionTest : public EventWritingTest, public testing::WithParamInterface<Action>
{
};

TEST_P(EventActionTest, ShowsWhatTheUserMeant)
{
    const Action &action = GetParam();
    const QByteArray other = "BEGIN:VEVENT\nUID:other\nSUMMARY:Other\nDTSTART:20250101T000000Z\nEND:VEVENT\n";
    put(calendarOf(other + action.components));
    EKEvent chosen = at(action.at);
    if (action.change) {
        action.change(chosen);
        static_cast<void>(database->save(chosen, action.span));
    } else {
        database->remove(chosen, action.span);
    }
    EXPECT_THAT(shown(), ElementsAreArray(action.shown));
    EXPECT_TRUE(log.isEmpty()) << log.join(u'\n').toStdString();
    const QByteArray written = texts();
    EXPECT_TRUE(written.contains(other));
    for (const QByteArray &each : action.written)
        EXPECT_TRUE(written.contains(each)) << each.toStdString() << " is not in\n" << written.toStdString();
    for (const QByteArray &each : action.gone)
        EXPECT_FALSE(written.contains(each)) << each.toStdString() << " is in\n" << written.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    All, EventActionTest, testing::ValuesIn(kActions), [](const auto &each) { return std::to_string(each.index); });

} // namespace
} // namespace mintaro
