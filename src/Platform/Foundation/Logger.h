#pragma once

#include <QString>

#include <functional>

namespace mintaro {

enum class LogLevel { Debug, Info, Error };

/// One line of the system log.
struct LogMessage
{
    LogLevel level;
    QString subsystem;
    QString category;
    QString text;
};

/// Takes log lines, from any thread.
using LogSink = std::function<void(const LogMessage &)>;

/// The system log: the journal with the fields SUBSYSTEM and CATEGORY when standard error is the journal
/// (JOURNAL_STREAM, systemd.exec(5)), else standard error. Debug lines are left out unless MINTARO_DEBUG is set.
void writeToSystemLog(const LogMessage &message);

/// Writes to the system log under a subsystem and a category. A cheap value, usable from any thread.
class Logger
{
public:
    explicit Logger(QString category, LogSink sink = writeToSystemLog);

    void debug(const QString &text) const { write(LogLevel::Debug, text); }
    void info(const QString &text) const { write(LogLevel::Info, text); }
    void error(const QString &text) const { write(LogLevel::Error, text); }

private:
    void write(LogLevel level, const QString &text) const;
    QString m_category;
    LogSink m_sink;
};

/// The subsystem of every line, and the application's identifier.
inline constexpr char kSubsystem[] = "dev.velmora.mintaro";

} // namespace mintaro
