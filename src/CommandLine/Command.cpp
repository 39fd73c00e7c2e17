#include "CommandLine/Command.h"

#include "CommandLine/AddCommand.h"
#include "CommandLine/AgendaCommand.h"
#include "CommandLine/LinksCommand.h"
#include "CommandLine/NextCommand.h"
#include "CommandLine/OccurrencesCommand.h"
#include "CommandLine/ParseCommand.h"
#include "CommandLine/RestoreCommand.h"
#include "CommandLine/SearchCommand.h"
#include "CommandLine/StatusCommand.h"
#include "CommandLine/ToggleCommand.h"
#include "Platform/AppKit/DesktopWorkspace.h"

#include <QCoroTask>
#include <QDateTime>
#include <QJsonDocument>

#include <cstdio>

namespace mintaro {

std::vector<std::unique_ptr<Command>> allCommands()
{
    std::vector<std::unique_ptr<Command>> commands;
    commands.push_back(std::make_unique<AgendaCommand>());
    commands.push_back(std::make_unique<NextCommand>());
    commands.push_back(std::make_unique<StatusCommand>());
    commands.push_back(std::make_unique<OccurrencesCommand>());
    commands.push_back(std::make_unique<SearchCommand>());
    commands.push_back(std::make_unique<AddCommand>());
    commands.push_back(std::make_unique<ParseCommand>());
    commands.push_back(std::make_unique<RestoreCommand>());
    commands.push_back(std::make_unique<LinksCommand>());
    commands.push_back(std::make_unique<ToggleCommand>());
    return commands;
}

bool printLine(const QString &line)
{
    const QByteArray bytes = line.toUtf8() + '\n';
    return std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stdout)
        == static_cast<std::size_t>(bytes.size());
}

bool printJson(const QJsonObject &object)
{
    return printLine(QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact)));
}

LoadedState::LoadedState(const QCommandLineParser &arguments)
    : m_context(ContextOptions::from(arguments))
    , m_workspace(std::make_unique<DesktopWorkspace>(AppContext::calendarConfigurationFolder()))
    , m_appState(std::make_unique<AppState>(m_context.dependencies(*m_workspace)))
{
    QCoro::waitFor(m_appState->requestAccessAndLoad());
    if (!m_appState->hasCalendarAccess())
        throw CommandError(QStringLiteral("the calendars cannot be read"));
}

LoadedState::~LoadedState() = default;

QString isoMoment(Date date, const TimeZone &timeZone)
{
    const auto offset = timeZone.secondsFromGMT(std::chrono::floor<std::chrono::seconds>(date));
    return QDateTime::fromMSecsSinceEpoch(
        date.time_since_epoch().count(), Qt::OffsetFromUTC, static_cast<int>(offset.count()))
        .toString(Qt::ISODate);
}

QJsonObject toJson(const CalendarEvent &event, const TimeZone &timeZone)
{
    QJsonObject object { { QStringLiteral("id"), event.id }, { QStringLiteral("title"), event.title },
        { QStringLiteral("start"), isoMoment(event.startDate, timeZone) },
        { QStringLiteral("end"), isoMoment(event.endDate, timeZone) }, { QStringLiteral("allDay"), event.isAllDay },
        { QStringLiteral("calendar"), event.calendarTitle }, { QStringLiteral("color"), event.calendarColor.hex() } };
    if (event.isReminder) {
        object.insert(QStringLiteral("reminder"), true);
        object.insert(QStringLiteral("completed"), event.isCompleted);
    }
    if (event.location)
        object.insert(QStringLiteral("location"), *event.location);
    if (event.meetingInfo) {
        object.insert(QStringLiteral("meeting"),
            QJsonObject { { QStringLiteral("service"), event.meetingInfo->service },
                { QStringLiteral("url"), event.meetingInfo->url.absoluteString() } });
    }
    return object;
}

} // namespace mintaro
