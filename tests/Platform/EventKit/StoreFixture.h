#pragma once

#include "Platform/EventKit/Folders/BaseFolders.h"
#include "Platform/Foundation/Logger.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMutex>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace mintaro {

/// A user's folders below a temporary one, and a log that can be read back.
class StoreFixture : public testing::Test
{
protected:
    [[nodiscard]] QString path(const QString &relative = {}) const
    {
        const QString root = QFileInfo(m_folder.path()).canonicalFilePath();
        return relative.isEmpty() ? root : root + u'/' + relative;
    }

    [[nodiscard]] BaseFolders baseFolders() const
    {
        return { path(QStringLiteral("home")), path(QStringLiteral("config")), path(QStringLiteral("data")),
            path(QStringLiteral("cache")), path(QStringLiteral("state")), {} };
    }

    void putFolder(const QString &relative) const { ASSERT_TRUE(QDir().mkpath(path(relative))); }

    /// Writes a file, with the folders that it needs.
    void put(const QString &relative, const QByteArray &bytes = {}) const
    {
        ASSERT_TRUE(QDir().mkpath(QFileInfo(path(relative)).path()));
        QFile file(path(relative));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << relative.toStdString();
        ASSERT_EQ(file.write(bytes), bytes.size());
    }

    /// Until what was written can no longer be written again at the same time by the clock of files.
    static void awaitSettledFiles() { std::this_thread::sleep_for(std::chrono::milliseconds { 80 }); }

    [[nodiscard]] Logger logger()
    {
        return Logger(QStringLiteral("EventStore"), [this](const LogMessage &message) {
            const QMutexLocker lock(&m_logMutex);
            m_log.append(message.text);
        });
    }

    /// The texts of all lines so far.
    [[nodiscard]] QStringList logged() const
    {
        const QMutexLocker lock(&m_logMutex);
        return m_log;
    }

private:
    QTemporaryDir m_folder;
    mutable QMutex m_logMutex;
    QStringList m_log;
};

} // namespace mintaro
