#include "CountedItems.h"
#include "StoreFixture.h"

#include <gmock/gmock.h>

#include <QProcess>

#include <iostream>
#include <numeric>

namespace mintaro {

namespace {

using namespace std::chrono;
using testing::ElementsAreArray;
using testing::IsEmpty;

/// What somebody sees of a store, as text.
std::vector<std::string> seenBy(StoreUser &user)
{
    std::vector<std::string> lines;
    for (const EKEvent &event : user.events())
        lines.push_back(
            QStringList { event.calendarItemExternalIdentifier(), text(event.startDate()), text(event.endDate()),
                text(event.occurrenceDate()), event.title().value_or(QString()), event.location().value_or(QString()) }
                .join(u' ')
                .toStdString());
    return lines;
}

using Counts = std::map<QString, int>;

/// A program that counts; see mintaro-store-counter.cpp and other-counter.py.
class Counter
{
public:
    Counter(const QString &program, const QStringList &arguments) { m_process.start(program, arguments); }

    [[nodiscard]] bool isRunning()
    {
        return m_process.state() != QProcess::NotRunning && !m_process.waitForFinished(kGlance);
    }

    [[nodiscard]] Counts counts()
    {
        EXPECT_EQ(m_process.exitStatus(), QProcess::NormalExit);
        const QByteArray complaint = m_process.readAllStandardError();
        EXPECT_EQ(m_process.exitCode(), 0) << complaint.toStdString();
        std::cout << complaint.toStdString();
        Counts counts;
        for (const QByteArray &line : m_process.readAllStandardOutput().trimmed().split('\n'))
            counts[QString::fromUtf8(line.split(' ').front())] = line.split(' ').back().toInt();
        return counts;
    }

private:
    static constexpr int kGlance = 20;
    QProcess m_process;
};

class StressTest : public StoreFixture
{
protected:
    void SetUp() override
    {
        for (const CountedItem &item : countedItems())
            put(u"root/work/"_qs + item.uid + u".ics"_qs, textOf(item));
    }

    void expectTheseCounts(const QString &field, const Counts &counts)
    {
        int sum = 0;
        for (const CountedItem &item : countedItems()) {
            const int count = counts.contains(item.uid) ? counts.at(item.uid) : 0;
            EXPECT_GT(count, 0) << item.uid.toStdString();
            QFile file(path(u"root/work/"_qs + item.uid + u".ics"_qs));
            ASSERT_TRUE(file.open(QIODevice::ReadOnly));
            const QByteArray text = file.readAll();
            EXPECT_TRUE(text.trimmed().endsWith("END:VCALENDAR")) << text.toStdString();
            EXPECT_TRUE(text.contains(QStringLiteral(":%1 %2\r\n").arg(field).arg(count).toUtf8())
                || text.contains(QStringLiteral(":%1 %2\n").arg(field).arg(count).toUtf8()))
                << count << '\n'
                << text.toStdString();
            sum += count;
        }
        std::cout << field.toStdString() << ": " << sum << " updates\n";
    }

    const SystemClock m_clock;
};

TEST_F(StressTest, NoneOfThreeProgramsLosesAnUpdate)
{
    const QString seconds = qEnvironmentVariableIsSet("MINTARO_LONG_TESTS") ? u"60"_qs : u"4"_qs;
    StoreUser follower(path(), m_clock, StoreUser::Index::Yes, logger());
    follower.database().follow();
    Counter titles(QStringLiteral(MINTARO_STORE_COUNTER), { path(), u"title"_qs, seconds });
    Counter locations(QStringLiteral(MINTARO_STORE_COUNTER), { path(), u"location"_qs, seconds });
    Counter others(QStringLiteral(MINTARO_OTHER_COUNTER), { path(u"root/work"_qs), seconds });
    const std::size_t occurrences = follower.events().size();
    while (titles.isRunning() || locations.isRunning() || others.isRunning())
        ASSERT_EQ(follower.events().size(), occurrences);
    expectTheseCounts(u"title"_qs, titles.counts());
    expectTheseCounts(u"location"_qs, locations.counts());
    expectTheseCounts(u"other"_qs, others.counts());
    EXPECT_EQ(QDir(path(u"root/work"_qs)).entryList(QDir::Files | QDir::Hidden).size(),
        static_cast<qsizetype>(countedItems().size()));

    StoreUser fresh(path(), m_clock, StoreUser::Index::No, logger());
    const std::vector<std::string> seen = seenBy(fresh);
    // The last change may still be on its way.
    for (const auto end = steady_clock::now() + 5s; seenBy(follower) != seen && steady_clock::now() < end;)
        std::this_thread::sleep_for(10ms);
    EXPECT_THAT(seenBy(follower), ElementsAreArray(seen));
    StoreUser later(path(), m_clock, StoreUser::Index::Yes, logger());
    EXPECT_THAT(seenBy(later), ElementsAreArray(seen));
    EXPECT_THAT(logged(), IsEmpty());
}

} // namespace

} // namespace mintaro
