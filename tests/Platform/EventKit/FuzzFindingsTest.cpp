#include "fuzz/CalendarChecks.h"

#include <QDirIterator>
#include <QFile>

#include <gtest/gtest.h>

#include <string>

namespace mintaro {

namespace {

struct Findings
{
    const char *name;
    const char *folder;
    void (*check)(const QByteArray &text);
};

/// The files of a folder of tests/data, each through the check that it once failed or might fail.
class FuzzFindings : public ::testing::TestWithParam<Findings>
{
};

TEST_P(FuzzFindings, KeepWhatMustHold)
{
    QDirIterator files(QStringLiteral(MINTARO_TEST_DATA "/") + QLatin1String(GetParam().folder), QDir::Files);
    ASSERT_TRUE(files.hasNext());
    while (files.hasNext()) {
        QFile file(files.next());
        SCOPED_TRACE(qPrintable(file.fileName()));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_NO_THROW(GetParam().check(file.readAll()));
    }
}

INSTANTIATE_TEST_SUITE_P(Folders, FuzzFindings,
    ::testing::Values(Findings { "Reader", "fuzz/reader", checkReading },
        Findings { "Index", "fuzz/index", checkUnpacking },
        Findings { "Recurrence", "fuzz/recurrence", checkExpansion },
        Findings { "ReaderOnRules", "recurrence", checkReading },
        Findings { "RecurrenceOnRules", "recurrence", checkExpansion }),
    [](const auto &row) { return std::string(row.param.name); });

} // namespace

} // namespace mintaro
