#include "EngineFixture.h"

#include <QDir>
#include <QFile>

#include <string>

namespace mintaro {

namespace {

QByteArray readAll(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        ADD_FAILURE() << "cannot read " << qPrintable(path);
    return file.readAll();
}

QString folder()
{
    return QStringLiteral(MINTARO_TEST_DATA "/recurrence/");
}

std::vector<std::string> caseNames()
{
    std::vector<std::string> names;
    for (const QString &file : QDir(folder()).entryList({ QStringLiteral("*.ics") }))
        names.push_back(QFileInfo(file).completeBaseName().toStdString());
    return names;
}

QString line(const EKEvent &event)
{
    const Date end = event.endDate() + std::chrono::seconds { event.isAllDay() ? 1 : 0 };
    return text(event.startDate()) + u' ' + text(end) + u' ' + event.title().value_or(QStringLiteral("-"));
}

} // namespace

/// Each file of tests/data/recurrence with the occurrences that the file beside it gives: the first line is the query's
/// window, the others are start, end and title, seen from Rome, a whole day ending with the next midnight.
class RecurrenceData : public EngineFixture, public ::testing::WithParamInterface<std::string>
{
};

TEST_P(RecurrenceData, HasTheExpectedOccurrences)
{
    const QString base = folder() + QString::fromStdString(GetParam());
    put(readAll(base + QStringLiteral(".ics")));
    QStringList expected
        = QString::fromUtf8(readAll(base + QStringLiteral(".expected"))).split(u'\n', Qt::SkipEmptyParts);
    ASSERT_FALSE(expected.isEmpty());
    const QByteArrayList window = expected.takeFirst().toLatin1().split(' ');
    ASSERT_EQ(window.size(), 2);
    QStringList actual;
    for (const EKEvent &event : events(window[0].constData(), window[1].constData()))
        actual.append(line(event));
    EXPECT_EQ(actual.join(u'\n').toStdString(), expected.join(u'\n').toStdString());
}

INSTANTIATE_TEST_SUITE_P(Files, RecurrenceData, ::testing::ValuesIn(caseNames()),
    [](const auto &row) { return QString::fromStdString(row.param).replace(u'-', u'_').toStdString(); });

// An empty folder is a failure: the suite above would have no test and pass.
TEST(RecurrenceDataFolder, IsNotEmpty)
{
    EXPECT_FALSE(caseNames().empty());
}

} // namespace mintaro
