#include "EngineFixture.h"

#include <QDir>
#include <QFile>

#include <array>
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

constexpr std::array kFolders { "recurrence", "exports" };

/// What a case is found by: its folder and its name.
using Case = std::pair<std::string, std::string>;

QDir folderOf(const std::string &name)
{
    return QDir(QStringLiteral(MINTARO_TEST_DATA "/") + QString::fromStdString(name));
}

std::vector<Case> cases()
{
    std::vector<Case> all;
    for (const std::string folder : kFolders) {
        for (const QString &file : folderOf(folder).entryList({ QStringLiteral("*.ics") }))
            all.emplace_back(folder, QFileInfo(file).completeBaseName().toStdString());
    }
    return all;
}

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
class CalendarData : public EngineFixture, public ::testing::WithParamInterface<Case>
{
};

TEST_P(CalendarData, HasTheExpectedOccurrences)
{
    const auto &[folder, name] = GetParam();
    const QString base = folderOf(folder).filePath(QString::fromStdString(name));
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

INSTANTIATE_TEST_SUITE_P(Files, CalendarData, ::testing::ValuesIn(cases()), [](const auto &row) {
    return QString::fromStdString(row.param.first + '_' + row.param.second).replace(u'-', u'_').toStdString();
});

// An empty folder is a failure: the suite above would have no test and pass.
TEST(CalendarDataFolder, IsNotEmpty)
{
    EXPECT_FALSE(cases().empty());
}

} // namespace mintaro
