#include "EngineFixture.h"
#include "Platform/EventKit/Index/Sqlite.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <functional>
#include <thread>

namespace mintaro {
namespace {

QByteArray content(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// All that an event says, a line each.
QString describe(const EKEvent &event)
{
    QStringList parts { event.eventIdentifier(), event.calendarItemExternalIdentifier(), text(event.startDate()),
        text(event.endDate()), text(event.occurrenceDate()), event.isAllDay() ? u"day"_qs : u"time"_qs };
    for (const auto &each : { event.title(), event.location(), event.notes(), event.url() })
        parts.append(each ? u'"' + *each + u'"' : u"-"_qs);
    for (const EKParticipant &each : event.attendees())
        parts.append(u"%1 %2 %3 %4"_qs.arg(each.name, each.url)
                         .arg(static_cast<int>(each.participantStatus))
                         .arg(each.isCurrentUser));
    for (const EKAlarm &each : event.alarms())
        parts.append(each.absoluteDate ? text(*each.absoluteDate) : QString::number(each.relativeOffset.count()));
    for (const EKRecurrenceRule &each : event.recurrenceRules())
        parts.append(QString::fromUtf8(each.rule));
    return parts.join(u'|');
}

QString describe(const EKReminder &reminder)
{
    const auto due = reminder.dueDateComponents();
    const auto done = reminder.completionDate();
    return QStringList { reminder.calendarItemIdentifier(), reminder.title(), reminder.notes().value_or(u"-"_qs),
        reminder.url().value_or(u"-"_qs), due ? due->timeZone ? due->timeZone->identifier() : u"floating"_qs : u"-"_qs,
        done ? text(*done) : u"-"_qs, reminder.isCompleted() ? u"done"_qs : u"open"_qs }
        .join(u'|');
}

struct Answer
{
    QStringList lines;
    int parsed = 0;
};

/// A store that is looked at by one run after the other, with an index in a folder of its own.
class Index : public ::testing::Test
{
protected:
    Index()
    {
        QDir data(QStringLiteral(MINTARO_TEST_DATA "/recurrence"));
        for (const QString &name : data.entryList({ QStringLiteral("*.ics") }))
            objects[name] = content(data.filePath(name));
        objects[u"people.ics"_qs]
            = eventOf("DTSTART:20260310T090000Z\nSUMMARY:Caff\xC3\xA8\nLOCATION:\nURL:https://a.example\n"
                      "DESCRIPTION:one\\ntwo\nATTENDEE;CN=Me;PARTSTAT=DECLINED:mailto:me@example.org\n"
                      "BEGIN:VALARM\nACTION:DISPLAY\nTRIGGER;VALUE=DATE-TIME:20260310T080000Z\nEND:VALARM");
        objects[u"task.ics"_qs]
            = calendarOf("BEGIN:VTODO\nUID:t\nSUMMARY:Buy milk\nDUE;TZID=Europe/Rome:20260311T100000\n"
                         "COMPLETED:20260310T100000Z\nEND:VTODO");
        objects[u"zone.ics"_qs] = calendarOf("BEGIN:VTIMEZONE\nTZID:Ours\nBEGIN:STANDARD\nDTSTART:"
                                             "20250101T000000\nTZOFFSETFROM:+0130\nTZOFFSETTO:+0130\n"
                                             "END:STANDARD\nEND:VTIMEZONE\nBEGIN:VEVENT\nUID:z\nDTSTART;TZID=Ours:"
                                             "20260310T120000\nSUMMARY:Own zone\nEND:VEVENT");
        objects[u"broken.ics"_qs] = "BEGIN:VCALENDAR\nBEGIN:VEVENT\nUID:b\nEND:VEVENT\nEND:VCALENDAR\n";
    }

    [[nodiscard]] QString folder() const { return m_folder.filePath(QStringLiteral("cache/mintaro")); }
    [[nodiscard]] QString file() const
    {
        const QDir dir(folder());
        const QStringList found = dir.entryList({ QStringLiteral("*.sqlite") });
        return found.isEmpty() ? QString() : dir.filePath(found.first());
    }

    /// What a run of the program sees of `objects`.
    Answer run()
    {
        auto memory = std::make_unique<MemoryBackend>();
        MemoryBackend &backend = *memory;
        backend.addCollection(u"work"_qs).userAddresses = addresses;
        for (const auto &[name, bytes] : objects)
            backend.contents[u"work"_qs][name]
                = { bytes, static_cast<std::int64_t>(uidKey(name) >> 8) + revisions[name] };
        NotificationCenter notifications;
        CalendarDatabase database(std::move(memory), std::make_unique<CalendarIndex>(folder()), environment,
            notifications, Logger(u"EventStore"_qs, [](const LogMessage &) {}));
        EXPECT_TRUE(database.requestAccess());
        Answer answer;
        for (const EKEvent &event : database.events({ utc("2026-01-01T00:00:00Z"), utc("2027-01-01T00:00:00Z") }))
            answer.lines.append(describe(event));
        for (const EKReminder &reminder : database.reminders({}))
            answer.lines.append(describe(reminder));
        answer.parsed = backend.reads;
        return answer;
    }

    FixedClock clock { utc("2026-03-01T09:00:00Z") };
    Environment environment { clock, Locale {}, *TimeZone::named(QStringLiteral("Europe/Rome")) };
    std::map<QString, QByteArray> objects;
    std::map<QString, std::int64_t> revisions;
    QStringList addresses { u"me@example.org"_qs };

private:
    QTemporaryDir m_folder;
};

TEST_F(Index, TheSecondRunParsesNothingAndSeesTheSame)
{
    const Answer first = run();
    EXPECT_EQ(first.parsed, static_cast<int>(objects.size()));
    EXPECT_GT(first.lines.size(), 100);
    const Answer second = run();
    EXPECT_EQ(second.parsed, 0);
    EXPECT_EQ(second.lines, first.lines);
}

TEST_F(Index, ParsesWhatIsNewChangedOrMeansSomethingElse)
{
    const QStringList before = run().lines;
    objects[u"new.ics"_qs] = eventOf("DTSTART:20260310T090000Z\nSUMMARY:New");
    objects[u"people.ics"_qs] = eventOf("DTSTART:20260310T090000Z\nSUMMARY:Changed");
    ++revisions[u"people.ics"_qs];
    objects.erase(u"task.ics"_qs);
    const Answer changed = run();
    EXPECT_EQ(changed.parsed, 2);
    EXPECT_EQ(changed.lines.filter(u"Changed"_qs).size(), 1);
    EXPECT_TRUE(changed.lines.filter(u"milk"_qs).isEmpty());
    EXPECT_EQ(run().parsed, 0);
    addresses.clear();
    EXPECT_EQ(run().parsed, static_cast<int>(objects.size()));
}

struct Damage
{
    const char *name;
    std::function<void(const QString &file)> inflict;
    /// Whether a later run can use an index again.
    bool isMended = true;
};

void overwrite(const QString &path, qint64 from, qint64 size, char byte)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.seek(from));
    ASSERT_EQ(file.write(QByteArray(static_cast<qsizetype>(size), byte)), size);
}

void execute(const QString &path, const char *sql)
{
    sqlite::Database(path).execute(sql);
}

class DamagedIndex : public Index, public ::testing::WithParamInterface<Damage>
{
};

TEST_P(DamagedIndex, IsRebuiltWithoutAWord)
{
    const QStringList whole = run().lines;
    GetParam().inflict(file());
    EXPECT_EQ(run().lines, whole);
    EXPECT_EQ(run().lines, whole);
    const Answer later = run();
    EXPECT_EQ(later.lines, whole);
    EXPECT_EQ(later.parsed == 0, GetParam().isMended);
}

INSTANTIATE_TEST_SUITE_P(Table, DamagedIndex,
    ::testing::Values(Damage { "Removed", [](const QString &file) { QFile::remove(file); } },
        Damage { "Empty", [](const QString &file) { QFile::resize(file, 0); } },
        Damage { "CutOff", [](const QString &file) { QFile::resize(file, QFileInfo(file).size() / 2); } },
        Damage { "NoDatabase", [](const QString &file) { overwrite(file, 0, 4096, 'x'); } },
        Damage { "PagesOfZeros", [](const QString &file) { overwrite(file, 4096, QFileInfo(file).size() - 4096, 0); } },
        Damage {
            "PagesOfNoise", [](const QString &file) { overwrite(file, 8192, QFileInfo(file).size() - 8192, 'x'); } },
        Damage { "OtherTables",
            [](const QString &file) { execute(file, "DROP TABLE schedules; CREATE TABLE schedules (a, b)"); } },
        Damage { "NoDetails", [](const QString &file) { execute(file, "DELETE FROM details"); } },
        Damage { "OtherDetails",
            [](const QString &file) {
                execute(file, "UPDATE details SET content = (SELECT max(content) FROM details)");
            } },
        Damage { "ChangedBytes",
            [](const QString &file) { execute(file, "UPDATE schedules SET content = x'00' || substr(content, 2)"); } },
        Damage {
            "NamesSwapped", [](const QString &file) { execute(file, "UPDATE schedules SET name = name || 'x'"); } },
        Damage { "AFolder",
            [](const QString &file) {
                QFile::remove(file);
                QDir().mkpath(file);
            },
            false }),
    [](const auto &each) { return each.param.name; });

TEST_F(Index, SeveralRunsAtOnceShareIt)
{
    const QStringList alone = run().lines;
    QFile::remove(file());
    std::vector<std::function<void()>> tasks;
    std::vector<Answer> answers(4);
    {
        std::vector<std::jthread> threads;
        for (const auto &[name, bytes] : objects)
            revisions[name] = 0;
        for (Answer &answer : answers) {
            threads.emplace_back([this, &answer] {
                for (int i = 0; i < 5; ++i)
                    answer = run();
            });
        }
    }
    for (const Answer &answer : answers)
        EXPECT_EQ(answer.lines, alone);
    EXPECT_EQ(run().parsed, 0);
}

} // namespace
} // namespace mintaro
