#pragma once

#include "App/AppContext.h"

#include <QCommandLineParser>
#include <QJsonObject>
#include <QString>

#include <memory>
#include <stdexcept>
#include <vector>

namespace mintaro {

/// A call that cannot be carried out; what() tells why.
class CommandError : public std::runtime_error
{
public:
    explicit CommandError(const QString &text)
        : std::runtime_error(text.toStdString())
    {
    }
};

/// One of mintaroctl's commands. It adds nothing to what the libraries know: it asks and prints.
class Command
{
public:
    virtual ~Command() = default;

    [[nodiscard]] virtual QString name() const = 0;
    [[nodiscard]] virtual QString summary() const = 0;
    /// For --help: what the summary leaves open, with examples.
    [[nodiscard]] virtual QString details() const { return {}; }
    virtual void addOptions(QCommandLineParser &) const { }
    /// Prints the answer to standard output and gives the exit status. Throws CommandError.
    [[nodiscard]] virtual int run(const QCommandLineParser &arguments) = 0;
};

[[nodiscard]] std::vector<std::unique_ptr<Command>> allCommands();

/// Writes to standard output in UTF-8; false once nobody reads it any more.
bool printLine(const QString &line);
bool printJson(const QJsonObject &object);

/// What agenda, next and status show is what AppState shows: these are AppState and its context, loaded.
class LoadedState
{
public:
    explicit LoadedState(const QCommandLineParser &arguments);
    ~LoadedState();

    /// AppContext::follow: keeps what is shown true.
    void follow() { m_context.follow(); }

    [[nodiscard]] AppState &appState() { return *m_appState; }
    [[nodiscard]] Environment &environment() { return m_context.environment(); }

private:
    AppContext m_context;
    std::unique_ptr<Workspace> m_workspace;
    std::unique_ptr<AppState> m_appState;
};

/// Local ISO 8601 with offset.
[[nodiscard]] QString isoMoment(Date date, const TimeZone &timeZone);
/// A record as programs get it: title, start, end (local ISO 8601 with offset), allDay, calendar, location, meeting,
/// ...
[[nodiscard]] QJsonObject toJson(const CalendarEvent &event, const TimeZone &timeZone);

} // namespace mintaro
