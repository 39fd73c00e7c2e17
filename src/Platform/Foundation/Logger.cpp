#include "Platform/Foundation/Logger.h"

#include <QByteArray>
#include <QtGlobal>

#include <cstdio>
#include <sys/stat.h>
#include <unistd.h>

#define SD_JOURNAL_SUPPRESS_LOCATION
#include <systemd/sd-journal.h>

namespace mintaro {

namespace {

/// systemd.exec(5): JOURNAL_STREAM holds device and inode of the stream that goes to the journal.
bool standardErrorIsJournal()
{
    struct stat status
    {
    };
    if (::fstat(STDERR_FILENO, &status) != 0)
        return false;
    return qEnvironmentVariable("JOURNAL_STREAM")
        == QString::number(status.st_dev) + u':' + QString::number(status.st_ino);
}

int journalPriority(LogLevel level)
{
    // syslog(3): 3 is an error, 6 informational, 7 for debugging.
    return level == LogLevel::Error ? 3 : level == LogLevel::Info ? 6 : 7;
}

} // namespace

void writeToSystemLog(const LogMessage &message)
{
    static const bool toJournal = standardErrorIsJournal();
    static const bool showsDebug = qEnvironmentVariableIsSet("MINTARO_DEBUG");
    if (message.level == LogLevel::Debug && !showsDebug)
        return;
    const QByteArray text = message.text.toUtf8();
    const QByteArray category = message.category.toUtf8();
    if (toJournal) {
        sd_journal_send("MESSAGE=%s", text.constData(), "PRIORITY=%i", journalPriority(message.level), "SUBSYSTEM=%s",
            message.subsystem.toUtf8().constData(), "CATEGORY=%s", category.constData(), nullptr);
        return;
    }
    std::fprintf(stderr, "mintaro: %s: %s\n", category.constData(), text.constData());
}

Logger::Logger(QString category, LogSink sink)
    : m_category(std::move(category))
    , m_sink(std::move(sink))
{
}

void Logger::write(LogLevel level, const QString &text) const
{
    m_sink({ level, QString::fromLatin1(kSubsystem), m_category, text });
}

} // namespace mintaro
