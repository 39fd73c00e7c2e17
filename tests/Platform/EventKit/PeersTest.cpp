#include "EngineFixture.h"
#include "StoreFixture.h"
#include "StoreUser.h"

#include <gmock/gmock.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

#include <functional>

namespace mintaro {

namespace {

using namespace std::chrono;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::UnorderedElementsAreArray;

constexpr EKSpan kThis = EKSpan::ThisEvent;
constexpr EKSpan kFuture = EKSpan::FutureEvents;

/// Real programs of other makers over the folders that Mintaro writes.
class PeersTest : public StoreFixture
{
protected:
    void SetUp() override
    {
        putFolder(u"root/work"_qs);
        const QByteArray root = path(u"root"_qs).toUtf8();
        // The zone is the one of StoreUser.
        put(u"config/khal/config"_qs,
            "[calendars]\n[[work]]\npath = " + root
                + "/work\n[locale]\nlocal_timezone = Europe/Rome\ndefault_timezone = Europe/Rome\ntimeformat = %H:%M\n"
                  "dateformat = %Y-%m-%d\nlongdateformat = %Y-%m-%d\ndatetimeformat = %Y-%m-%dT%H:%M\n"
                  "longdatetimeformat = %Y-%m-%dT%H:%M\n[default]\ndefault_calendar = work\n");
        put(u"config/todoman/config.py"_qs,
            "path = \"" + root + "/*\"\ndate_format = \"%Y-%m-%d\"\ntime_format = \"%H:%M\"\n");
        put(u"config/vdirsyncer/config"_qs,
            "[general]\nstatus_path = \"" + path(u"status"_qs).toUtf8()
                + "\"\n[pair both]\na = \"here\"\nb = \"there\"\ncollections = [\"work\"]\n"
                  "[storage here]\ntype = \"filesystem\"\npath = \""
                + root + "\"\nfileext = \".ics\"\n[storage there]\ntype = \"filesystem\"\npath = \""
                + path(u"there"_qs).toUtf8() + "\"\nfileext = \".ics\"\n");
    }

    /// What a program says; it must end well.
    [[nodiscard]] QString run(const QString &program, const QStringList &arguments, const QByteArray &input = {}) const
    {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"HOME"_qs, path(u"peer-home"_qs));
        environment.insert(u"XDG_CONFIG_HOME"_qs, path(u"config"_qs));
        environment.insert(u"XDG_DATA_HOME"_qs, path(u"peer-data"_qs));
        environment.insert(u"XDG_CACHE_HOME"_qs, path(u"peer-cache"_qs));
        environment.insert(u"TZ"_qs, u"Europe/Rome"_qs);
        process.setProcessEnvironment(environment);
        process.start(program, arguments);
        process.write(input);
        process.closeWriteChannel();
        EXPECT_TRUE(process.waitForFinished());
        const QString complaint = QString::fromUtf8(process.readAllStandardError());
        EXPECT_TRUE(process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0)
            << process.exitCode() << '\n'
            << complaint.toStdString();
        for (const char *word : { "warning", "error", "Traceback" })
            EXPECT_FALSE(complaint.contains(QLatin1String(word), Qt::CaseInsensitive)) << complaint.toStdString();
        return QString::fromUtf8(process.readAllStandardOutput());
    }

    [[nodiscard]] QString khal(const QStringList &arguments, const QByteArray &input = {}) const
    {
        return run(u"khal"_qs, arguments, input);
    }

    [[nodiscard]] QJsonArray todos() const
    {
        return QJsonDocument::fromJson(
            run(u"todoman"_qs, { u"--porcelain"_qs, u"list"_qs, u"--status"_qs, u"ANY"_qs }).toUtf8())
            .array();
    }

    /// The events as khal shows them. It says them again on each of their days.
    [[nodiscard]] std::vector<std::string> shownByKhal() const
    {
        const QString format
            = u"{uid}|{start-long}|{end-long}|{title}|{location}|{description}|{alarm-symbol}\u241e"_qs;
        const QString output
            = khal({ u"list"_qs, u"--day-format"_qs, {}, u"--format"_qs, format, u"2026-01-01"_qs, u"2027-06-01"_qs });
        QStringList events;
        for (const QString &event : output.split(u'\u241e'))
            events.append(event.trimmed().remove(u'\u23f0').replace(u"| "_qs, u"|!"_qs));
        events.removeAll(QString());
        events.removeDuplicates();
        return sorted(events);
    }

    /// The same as Mintaro shows them.
    [[nodiscard]] std::vector<std::string> shownByMintaro()
    {
        StoreUser user(path(), m_clock, StoreUser::Index::No, logger());
        QStringList events;
        for (const EKEvent &event : user.events()) {
            const auto shown = [&](Date date) {
                const QString format = event.isAllDay() ? u"yyyy-MM-dd"_qs : u"yyyy-MM-ddThh:mm"_qs;
                const auto local = user.environment().timeZone().toLocal(floor<seconds>(date));
                return QDateTime::fromSecsSinceEpoch(local.time_since_epoch().count(), Qt::UTC).toString(format);
            };
            events.append(QStringList { event.calendarItemExternalIdentifier(), shown(event.startDate()),
                shown(event.endDate()), event.title().value_or(QString()), event.location().value_or(QString()),
                event.notes().value_or(QString()), QString::fromLatin1(event.alarms().empty() ? "" : "!") }
                              .join(u'|'));
        }
        return sorted(events);
    }

    void expectTheSameShown()
    {
        EXPECT_THAT(shownByKhal(), UnorderedElementsAreArray(shownByMintaro()));
        EXPECT_THAT(logged(), ElementsAre());
    }

    [[nodiscard]] static std::vector<std::string> sorted(QStringList list)
    {
        list.sort();
        std::vector<std::string> result;
        for (const QString &line : list)
            result.push_back(line.toStdString());
        return result;
    }

    [[nodiscard]] StoreUser user(const QString &zone = u"Europe/Rome"_qs)
    {
        return StoreUser(path(), m_clock, StoreUser::Index::No, logger(), zone);
    }

    /// Gives the UID.
    static QString create(StoreUser &user, const QString &title, const char *start, const char *end,
        const QByteArray &rule = {}, const std::function<void(EKEvent &)> &more = {})
    {
        EKEvent event;
        event.setTitle(title);
        event.setStartDate(utc(start));
        event.setEndDate(utc(end));
        event.setCalendar(user.calendar(u"work"_qs));
        if (!rule.isEmpty())
            event.setRecurrenceRules({ { rule } });
        if (more)
            more(event);
        return user.store().save(event, kThis).calendarItemExternalIdentifier();
    }

    static void change(
        StoreUser &user, const QString &uid, std::size_t place, EKSpan span, const std::function<void(EKEvent &)> &set)
    {
        EKEvent event = user.event(uid, place);
        set(event);
        (void)user.store().save(event, span);
    }

    [[nodiscard]] std::map<std::string, QByteArray> items(const QString &folder) const
    {
        std::map<std::string, QByteArray> items;
        for (const QFileInfo &info : QDir(path(folder)).entryInfoList(QDir::Files | QDir::Hidden)) {
            QFile file(info.filePath());
            EXPECT_TRUE(file.open(QIODevice::ReadOnly));
            items.emplace(info.fileName().toStdString(), file.readAll());
        }
        return items;
    }

    const FixedClock m_clock { utc("2026-03-01T09:00:00Z") };
};

void setAllDay(EKEvent &event)
{
    event.setAllDay(true);
}

void setLater(EKEvent &event)
{
    event.setStartDate(event.startDate() + 90min);
    event.setEndDate(event.endDate() + 2h);
}

TEST_F(PeersTest, KhalShowsSingleEventsAsTheyAreShownHere)
{
    StoreUser rome = user();
    (void)create(rome, u"Plain"_qs, "2026-03-03T09:00:00Z", "2026-03-03T10:15:00Z");
    (void)create(rome, u"Over midnight"_qs, "2026-03-04T20:00:00Z", "2026-03-05T02:00:00Z");
    (void)create(rome, u"One day"_qs, "2026-03-06T00:00:00Z", "2026-03-06T12:00:00Z", {}, setAllDay);
    (void)create(rome, u"Over the change of clocks"_qs, "2026-03-27T23:00:00Z", "2026-03-30T12:00:00Z", {}, setAllDay);
    (void)create(rome, u"In the hour that is there twice"_qs, "2026-10-25T00:30:00Z", "2026-10-25T01:30:00Z");
    (void)create(rome, u"Texts, with; all \\ \"kinds\" of: signs, \u00e4\u00f6\u00fc \u00df \u00e9 \U0001F389"_qs,
        "2026-03-09T09:00:00Z", "2026-03-09T10:00:00Z", {}, [](EKEvent &event) {
            event.setLocation(QString(60, u'\u00fc') + QString::fromUtf8("\U0001F389").repeated(40));
            // Not before an n: khal then takes the backslash for the beginning of a line break.
            event.setNotes(u"First, line;\nsecond in C:\\folder\n\n\u00e8 vero: "_qs + QString(300, u'x'));
            event.setAlarms({ { std::nullopt, -15min }, { utc("2026-03-09T08:00:00Z"), {} } });
        });
    for (const QString &zone : { u"America/New_York"_qs, u"Asia/Kolkata"_qs, u"Australia/Lord_Howe"_qs, u"UTC"_qs }) {
        StoreUser there = user(zone);
        (void)create(there, zone, "2026-07-03T09:00:00Z", "2026-07-03T10:00:00Z");
    }
    EXPECT_EQ(shownByMintaro().size(), 10U);
    expectTheSameShown();
}

TEST_F(PeersTest, KhalShowsSeriesAsTheyAreShownHere)
{
    for (const QString &zone : { u"America/New_York"_qs, u"Asia/Kolkata"_qs, u"Australia/Lord_Howe"_qs, u"UTC"_qs,
             u"America/Sao_Paulo"_qs, u"Africa/Casablanca"_qs, u"Europe/Dublin"_qs }) {
        StoreUser there = user(zone);
        (void)create(there, zone, "2026-02-03T09:00:00Z", "2026-02-03T10:00:00Z", "FREQ=WEEKLY;COUNT=52");
    }
    StoreUser rome = user();
    (void)create(rome, u"Monthly"_qs, "2026-03-31T09:00:00Z", "2026-03-31T10:00:00Z",
        "FREQ=MONTHLY;BYDAY=-1TU;UNTIL=20261231T225959Z");
    (void)create(
        rome, u"All-day"_qs, "2026-03-05T00:00:00Z", "2026-03-06T00:00:00Z", "FREQ=MONTHLY;COUNT=5", setAllDay);
    EXPECT_EQ(shownByMintaro().size(), 7 * 52U + 10 + 5);
    expectTheSameShown();
}

TEST_F(PeersTest, KhalShowsWhatBecomesOfASeriesAsItIsShownHere)
{
    StoreUser rome = user();
    const struct
    {
        const char *rule;
        std::function<void(const QString &uid)> act;
        std::size_t count;
    } cases[] = {
        { "an occurrence is moved", [&](const QString &uid) { change(rome, uid, 2, kThis, setLater); }, 10 },
        { "an occurrence is removed", [&](const QString &uid) { rome.store().remove(rome.event(uid, 3), kThis); }, 9 },
        { "two are moved, one of them is removed",
            [&](const QString &uid) {
                change(rome, uid, 2, kThis, setLater);
                change(rome, uid, 5, kThis, setLater);
                rome.store().remove(rome.event(uid, 5), kThis);
            },
            9 },
        { "it ends earlier", [&](const QString &uid) { rome.store().remove(rome.event(uid, 4), kFuture); }, 4 },
        { "it is split", [&](const QString &uid) { change(rome, uid, 4, kFuture, setLater); }, 10 },
        { "it is split with exceptions and removals on both sides",
            [&](const QString &uid) {
                change(rome, uid, 1, kThis, setLater);
                change(rome, uid, 7, kThis, [](EKEvent &event) { event.setTitle(u"Another"_qs); });
                rome.store().remove(rome.event(uid, 8), kThis);
                rome.store().remove(rome.event(uid, 2), kThis);
                change(rome, uid, 4, kFuture, setLater);
            },
            8 },
        { "all of it is moved with its exception and its removal",
            [&](const QString &uid) {
                change(rome, uid, 3, kThis, setLater);
                rome.store().remove(rome.event(uid, 8), kThis);
                change(rome, uid, 0, kFuture, setLater);
            },
            9 },
        { "it gets another rule",
            [&](const QString &uid) {
                change(rome, uid, 0, kFuture,
                    [](EKEvent &event) { event.setRecurrenceRules({ { "FREQ=DAILY;INTERVAL=2;COUNT=4" } }); });
            },
            4 },
    };
    for (const auto &row : cases) {
        for (const bool isAllDay : { false, true }) {
            SCOPED_TRACE(std::string(row.rule) + (isAllDay ? ", all-day" : ""));
            const std::size_t before = rome.events().size();
            row.act(create(rome, QString::fromUtf8(row.rule), "2026-03-02T09:00:00Z", "2026-03-02T10:00:00Z",
                "FREQ=WEEKLY;COUNT=10", isAllDay ? setAllDay : std::function<void(EKEvent &)>()));
            EXPECT_EQ(rome.events().size() - before, row.count);
        }
    }
    expectTheSameShown();
}

TEST_F(PeersTest, WhatKhalWritesIsReadAndChangedHereAndReadByItAgain)
{
    StoreUser rome = user();
    const QString ours = create(rome, u"Ours"_qs, "2026-03-03T09:00:00Z", "2026-03-03T10:15:00Z");
    (void)khal({ u"new"_qs, u"-l"_qs, u"Room, 1"_qs, u"-m"_qs, u"15m"_qs, u"2026-03-12T10:00"_qs,
        u"2026-03-12T11:30"_qs, u"Single; theirs"_qs, u"::"_qs, u"Notes, theirs"_qs });
    (void)khal({ u"new"_qs, u"-r"_qs, u"weekly"_qs, u"-u"_qs, u"2026-05-30"_qs, u"2026-03-10T10:00"_qs,
        u"2026-03-10T11:30"_qs, u"Series"_qs });
    (void)khal({ u"new"_qs, u"2026-03-20"_qs, u"2026-03-22"_qs, u"Days"_qs });
    (void)khal({ u"edit"_qs, u"--show-past"_qs, u"Ours"_qs }, "s\nOurs, by them\nq\n");
    expectTheSameShown();

    StoreUser again = user();
    EXPECT_EQ(again.event(ours).title(), u"Ours, by them"_qs);
    const auto uidOf = [&again](const QString &title) {
        for (const EKEvent &event : again.events()) {
            if (event.title() == title)
                return event.calendarItemExternalIdentifier();
        }
        return QString();
    };
    change(again, ours, 0, kThis, setLater);
    change(again, uidOf(u"Single; theirs"_qs), 0, kThis, [](EKEvent &event) {
        setLater(event);
        event.setNotes(u"Notes\nof ours"_qs);
    });
    change(again, uidOf(u"Days"_qs), 0, kThis, [](EKEvent &event) { event.setEndDate(event.endDate() + days(1)); });
    const QString series = uidOf(u"Series"_qs);
    change(again, series, 3, kThis, setLater);
    again.store().remove(again.event(series, 5), kThis);
    change(again, series, 7, kFuture, [](EKEvent &event) { event.setTitle(u"Rest"_qs); });
    expectTheSameShown();

    (void)khal({ u"edit"_qs, u"--show-past"_qs, u"Rest"_qs }, "s\nTheir rest\nq\n");
    expectTheSameShown();
    EXPECT_THAT(shownByMintaro(), Contains(HasSubstr("Their rest")));
}

TEST_F(PeersTest, TodomanAndMintaroTickOffTheSameReminders)
{
    for (const QByteArray &name : { QByteArray("one"), QByteArray("two"), QByteArray("three") })
        put(u"root/work/"_qs + QString::fromUtf8(name) + u".ics"_qs,
            calendarOf("BEGIN:VTODO\nUID:" + name
                + "\nDTSTAMP:20260101T000000Z\nDUE;TZID=Europe/Rome:20260303T090000\n"
                  "SUMMARY:"
                + name + "\nSTATUS:" + (name == "three" ? "COMPLETED\nPERCENT-COMPLETE:100" : "NEEDS-ACTION")
                + "\nEND:VTODO"));
    const auto isTicked = [this](const QString &title) {
        for (const QJsonValue &todo : todos()) {
            if (todo[u"summary"_qs].toString() == title)
                return std::pair(todo[u"completed"_qs].toBool(), todo[u"completed_at"_qs].toInteger());
        }
        return std::pair(false, qint64 { -1 });
    };
    const auto tick = [this](const QString &title, bool isCompleted) {
        StoreUser here = user();
        for (EKReminder reminder : here.database().reminders({})) {
            if (reminder.title() == title) {
                reminder.setCompleted(isCompleted);
                reminder.setCompletionDate(isCompleted ? std::optional(m_clock.now()) : std::nullopt);
                here.store().save(reminder);
            }
        }
    };
    tick(u"one"_qs, true);
    tick(u"three"_qs, false);
    const qint64 now = floor<seconds>(m_clock.now()).time_since_epoch().count();
    EXPECT_EQ(isTicked(u"one"_qs), std::pair(true, now));
    EXPECT_EQ(isTicked(u"two"_qs), std::pair(false, qint64 { 0 }));
    EXPECT_EQ(isTicked(u"three"_qs), std::pair(false, qint64 { 0 }));

    QString id;
    for (const QJsonValue &todo : todos()) {
        if (todo[u"summary"_qs].toString() == u"two")
            id = QString::number(todo[u"id"_qs].toInt());
    }
    (void)run(u"todoman"_qs, { u"done"_qs, id });
    StoreUser here = user();
    for (const EKReminder &reminder : here.database().reminders({}))
        EXPECT_EQ(reminder.isCompleted(), reminder.title() != u"three") << reminder.title().toStdString();
    tick(u"two"_qs, false);
    EXPECT_EQ(isTicked(u"two"_qs), std::pair(false, qint64 { 0 }));
    EXPECT_THAT(logged(), IsEmpty());
}

TEST_F(PeersTest, VdirsyncerCarriesChangesOfBothSides)
{
    const QString vdirsyncer = u"vdirsyncer"_qs;
    putFolder(u"there/work"_qs);
    const auto sync = [&] {
        const QString said = run(vdirsyncer, { u"sync"_qs });
        EXPECT_FALSE(said.contains(u"error"_qs, Qt::CaseInsensitive)) << said.toStdString();
        EXPECT_EQ(items(u"root/work"_qs), items(u"there/work"_qs));
    };
    StoreUser rome = user();
    const QString single = create(rome, u"Single"_qs, "2026-03-03T09:00:00Z", "2026-03-03T10:15:00Z");
    const QString removed = create(rome, u"To be removed"_qs, "2026-03-03T09:00:00Z", "2026-03-03T10:15:00Z");
    const QString series
        = create(rome, u"Series"_qs, "2026-03-02T09:00:00Z", "2026-03-02T10:00:00Z", "FREQ=WEEKLY;COUNT=10");
    (void)run(vdirsyncer, { u"discover"_qs });
    sync();
    EXPECT_EQ(items(u"there/work"_qs).size(), 3U);

    change(rome, series, 4, kFuture, setLater);
    change(rome, series, 1, kThis, setLater);
    rome.store().remove(rome.event(removed), kThis);
    QByteArray text = items(u"there/work"_qs).at(single.toStdString() + ".ics");
    put(u"there/work/"_qs + single + u".ics"_qs, text.replace("SUMMARY:Single", "SUMMARY:Changed there"));
    put(u"there/work/new.ics"_qs,
        calendarOf("BEGIN:VEVENT\nUID:new\nDTSTAMP:20260101T000000Z\nDTSTART:20260303T120000Z\nDTEND:"
                   "20260303T130000Z\nSUMMARY:New\nEND:VEVENT"));
    sync();
    EXPECT_EQ(items(u"root/work"_qs).size(), 4U);
    StoreUser again = user();
    EXPECT_EQ(again.event(single).title(), u"Changed there"_qs);
    change(again, u"new"_qs, 0, kThis, [](EKEvent &event) { event.setTitle(u"Changed here"_qs); });
    sync();
    EXPECT_THAT(items(u"there/work"_qs).at("new.ics").toStdString(), HasSubstr("SUMMARY:Changed here"));
    expectTheSameShown();
}

} // namespace

} // namespace mintaro
