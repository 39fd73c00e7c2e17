#pragma once

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace mintaro {

/// One of the calendars below tests/data.
struct CalendarFile
{
    std::string folder;
    std::string name;

    /// Its path without an ending.
    [[nodiscard]] QString base() const
    {
        return QStringLiteral(MINTARO_TEST_DATA "/") + QString::fromStdString(folder + '/' + name);
    }
    [[nodiscard]] std::string testName() const
    {
        return QString::fromStdString(folder + '_' + name).replace(u'-', u'_').toStdString();
    }
};

inline std::vector<CalendarFile> calendarFiles()
{
    std::vector<CalendarFile> all;
    for (const std::string folder : { "recurrence", "exports" }) {
        const QDir files(QStringLiteral(MINTARO_TEST_DATA "/") + QString::fromStdString(folder));
        for (const QString &file : files.entryList({ QStringLiteral("*.ics") }))
            all.push_back({ folder, QFileInfo(file).completeBaseName().toStdString() });
    }
    return all;
}

inline QByteArray readAll(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        ADD_FAILURE() << "cannot read " << qPrintable(path);
    return file.readAll();
}

} // namespace mintaro
