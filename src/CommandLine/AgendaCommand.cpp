#include "CommandLine/AgendaCommand.h"

#include "Platform/Foundation/DateFormatter.h"
#include "Platform/Foundation/ISO8601.h"

#include <QDate>
#include <QJsonArray>

namespace mintaro {

namespace {

QString itemLine(const CalendarEvent &event, const TimeZone &timeZone)
{
    const QString mark = event.isCompleted ? QStringLiteral("[x]") : QStringLiteral("[ ]");
    QString line = QStringLiteral("  %1  ").arg(event.isReminder ? mark : event.timeRange(timeZone), -14) + event.title;
    if (event.meetingInfo)
        line += QStringLiteral("  <%1>").arg(event.meetingInfo->url.absoluteString());
    return line;
}

QString isoDay(std::chrono::year_month_day day)
{
    return QDate(
        int { day.year() }, static_cast<int>(unsigned { day.month() }), static_cast<int>(unsigned { day.day() }))
        .toString(Qt::ISODate);
}

} // namespace

QString AgendaCommand::summary() const
{
    return QStringLiteral("the next 14 days");
}

void AgendaCommand::addOptions(QCommandLineParser &parser) const
{
    parser.addOption(
        { QStringLiteral("from"), QStringLiteral("Begin at this day (ISO 8601)."), QStringLiteral("day") });
    parser.addOption({ QStringLiteral("json"), QStringLiteral("One JSON object per line for each day.") });
}

int AgendaCommand::run(const QCommandLineParser &arguments)
{
    LoadedState state(arguments);
    const TimeZone timeZone = state.environment().timeZone();
    if (arguments.isSet(QStringLiteral("from"))) {
        const auto from = dateFromIso8601(arguments.value(QStringLiteral("from")), timeZone);
        if (!from)
            throw CommandError(QStringLiteral("--from: cannot make sense of it"));
        state.appState().setMonthDate(*from);
        state.appState().setSelectedDate(*from);
        QCoro::waitFor(state.appState().refreshAll());
    }
    const DateFormatter dayFormat
        = DateFormatter::withTemplate(QStringLiteral("EEEEdMMMMy"), state.environment().locale());
    for (const DayEvents &day : state.appState().agendaEvents()) {
        const QString heading = dayFormat.string(day.date, timeZone);
        QJsonArray items;
        if (!arguments.isSet(QStringLiteral("json")))
            printLine(heading);
        for (const CalendarEvent &event : day.events) {
            if (arguments.isSet(QStringLiteral("json")))
                items.append(toJson(event, timeZone));
            else
                printLine(itemLine(event, timeZone));
        }
        if (arguments.isSet(QStringLiteral("json")))
            printJson({ { QStringLiteral("day"), isoDay(state.environment().calendar().civilDay(day.date)) },
                { QStringLiteral("items"), items } });
    }
    return 0;
}

} // namespace mintaro
