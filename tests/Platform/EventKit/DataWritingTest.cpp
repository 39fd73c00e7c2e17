#include "CalendarFiles.h"
#include "EngineFixture.h"
#include "Platform/EventKit/Writing/ICalNode.h"

#include <algorithm>

namespace mintaro {
namespace {

using namespace std::chrono;

/// What is to be the same after a change elsewhere.
QString facts(const EKEvent &event, bool withTitle)
{
    QString alarms;
    for (const EKAlarm &alarm : event.alarms())
        alarms += QString::number(alarm.relativeOffset.count()) + u',';
    QString people;
    for (const EKParticipant &person : event.attendees())
        people += person.url + QString::number(static_cast<int>(person.participantStatus)) + u',';
    return QStringList { text(event.startDate()), text(event.endDate()),
        event.isAllDay() ? QStringLiteral("day") : QString(), withTitle ? event.title().value_or(QString()) : QString(),
        event.location().value_or(QString()), event.notes().value_or(QString()), event.url().value_or(QString()),
        alarms, people }
        .join(u'|');
}

bool isMark(const QByteArray &line)
{
    const QByteArray head = line.left(25).toUpper();
    return head.contains("SUMMARY") || head.startsWith("DTSTAMP") || head.startsWith("LAST-MODIFIED")
        || head.startsWith("SEQUENCE");
}

/// Whether all lines of one text, but for the marks of a change, stand in the other one in the same order.
testing::AssertionResult hasLinesOf(const QByteArray &changed, const QByteArray &original)
{
    const QList<QByteArray> lines = changed.split('\n');
    auto at = lines.begin();
    bool isMarked = false;
    for (const QByteArray &line : original.split('\n')) {
        isMarked = isMark(line) || (isMarked && (line.startsWith(' ') || line.startsWith('\t')));
        if (isMarked)
            continue;
        at = std::find(at, lines.end(), line);
        if (at == lines.end())
            return testing::AssertionFailure() << "lost: " << line.toStdString() << "\nof " << original.toStdString()
                                               << "\nin " << changed.toStdString();
        ++at;
    }
    return testing::AssertionSuccess();
}

} // namespace

/// Each calendar below tests/data, changed in one place.
class DataWriting : public EngineFixture, public testing::WithParamInterface<CalendarFile>
{
protected:
    void SetUp() override
    {
        original = readAll(GetParam().base() + QStringLiteral(".ics"));
        const QByteArray expected = readAll(GetParam().base() + QStringLiteral(".expected"));
        window = expected.left(expected.indexOf('\n')).split(' ');
        ASSERT_EQ(window.size(), 2);
        ASSERT_TRUE(database->requestAccess());
    }

    /// Puts the calendar as it was.
    std::vector<EKEvent> begin()
    {
        backend->contents[QStringLiteral("work")].clear();
        put(original);
        return listed();
    }

    /// Reads all anew.
    std::vector<EKEvent> listed()
    {
        StoreChanges changes;
        changes.objects[QStringLiteral("work")] = {};
        backend->tell(changes);
        return events(window[0].constData(), window[1].constData());
    }

    QStringList allFacts(const std::vector<EKEvent> &list, bool withTitles)
    {
        QStringList all;
        for (const EKEvent &event : list)
            all.append(facts(event, withTitles));
        all.sort();
        return all;
    }

    QByteArray text() const { return backend->contents.at(QStringLiteral("work")).at(QStringLiteral("a.ics")).text; }

    QByteArray original;
    QByteArrayList window;
};

TEST_P(DataWriting, TakenApartIsTheSame)
{
    EXPECT_EQ(ICalNode::parse(original).text(), plainText(original));
}

TEST_P(DataWriting, OneOccurrenceChangesAndNothingElse)
{
    const std::size_t count = begin().size();
    // The first, the last and one between of each item would be enough; a dozen spread over all is as good.
    for (std::size_t i = 0; i < count; i += std::max<std::size_t>(1, count / 12)) {
        const std::vector<EKEvent> before = begin();
        EKEvent changed = before[i];
        changed.setTitle(QStringLiteral("Changed"));
        if (changed.item()->isDamaged || !original.toUpper().contains("END:VCALENDAR")) {
            EXPECT_THROW(static_cast<void>(database->save(changed, EKSpan::ThisEvent)), EKError);
            EXPECT_EQ(text(), original);
            continue;
        }
        static_cast<void>(database->save(changed, EKSpan::ThisEvent));
        QStringList expected;
        for (std::size_t k = 0; k < before.size(); ++k)
            expected.append(facts(k == i ? changed : before[k], true));
        expected.sort();
        const QStringList actual = allFacts(listed(), true);
        EXPECT_EQ(actual.join(u'\n').toStdString(), expected.join(u'\n').toStdString()) << text().toStdString();
        // An exception that speaks for later occurrences too is moved on to them.
        EXPECT_TRUE(original.contains("RANGE=THISANDFUTURE") || hasLinesOf(text(), plainText(original)));
    }
}

TEST_P(DataWriting, DividingASeriesMovesNothing)
{
    const std::size_t count = begin().size();
    std::size_t refused = 0;
    for (std::size_t i = 0; i < count; i += std::max<std::size_t>(1, count / 12)) {
        const std::vector<EKEvent> before = begin();
        EKEvent changed = before[i];
        changed.setTitle(QStringLiteral("Changed"));
        try {
            const EKEvent saved = database->save(changed, EKSpan::FutureEvents);
            EXPECT_EQ(saved.startDate(), changed.startDate());
            EXPECT_EQ(saved.title(), changed.title());
        } catch (const EKError &) {
            EXPECT_EQ(text(), original);
            ++refused;
        }
        const std::vector<EKEvent> after = listed();
        EXPECT_EQ(allFacts(after, false).join(u'\n').toStdString(), allFacts(before, false).join(u'\n').toStdString())
            << mintaro::text(changed.startDate()).toStdString() << "\n"
            << text().toStdString();
    }
    RecordProperty("refused", static_cast<int>(refused));
}

INSTANTIATE_TEST_SUITE_P(
    Files, DataWriting, testing::ValuesIn(calendarFiles()), [](const auto &row) { return row.param.testName(); });

} // namespace mintaro
