#include "CalendarFiles.h"
#include "EngineFixture.h"

namespace mintaro {

namespace {

QString line(const EKEvent &event)
{
    const Date end = event.endDate() + std::chrono::seconds { event.isAllDay() ? 1 : 0 };
    return text(event.startDate()) + u' ' + text(end) + u' '
        + event.title().value_or(QStringLiteral("-")).replace(u'\n', QLatin1String("\\n"));
}

} // namespace

/// Each calendar below tests/data with what the file beside it expects: the first line is the query's window, the
/// others are start, end and title of the occurrences, seen from Rome, a whole day ending with the next midnight, then
/// the log's lines after a "!".
class CalendarData : public EngineFixture, public ::testing::WithParamInterface<CalendarFile>
{
};

TEST_P(CalendarData, HasTheExpectedOccurrences)
{
    const QString base = GetParam().base();
    put(readAll(base + QStringLiteral(".ics")));
    QStringList expected
        = QString::fromUtf8(readAll(base + QStringLiteral(".expected"))).split(u'\n', Qt::SkipEmptyParts);
    ASSERT_FALSE(expected.isEmpty());
    const QByteArrayList window = expected.takeFirst().toLatin1().split(' ');
    ASSERT_EQ(window.size(), 2);
    QStringList actual;
    for (const EKEvent &event : events(window[0].constData(), window[1].constData()))
        actual.append(line(event));
    for (const QString &complaint : log)
        actual.append(QLatin1String("! ") + complaint);
    EXPECT_EQ(actual.join(u'\n').toStdString(), expected.join(u'\n').toStdString());
}

INSTANTIATE_TEST_SUITE_P(
    Files, CalendarData, ::testing::ValuesIn(calendarFiles()), [](const auto &row) { return row.param.testName(); });

// An empty folder is a failure: the suite above would have no test and pass.
TEST(CalendarDataFolder, IsNotEmpty)
{
    EXPECT_FALSE(calendarFiles().empty());
}

} // namespace mintaro
