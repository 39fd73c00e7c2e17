#include "CommandLine/OccurrenceListCommand.h"

#include "Platform/EventKit/CalendarDatabase.h"
#include "Platform/Foundation/ISO8601.h"

#include <QElapsedTimer>
#include <QJsonArray>

#include <cstdio>

namespace mintaro {

namespace {

QString escaped(QString text)
{
    text.replace(u'\\', QLatin1String("\\\\"))
        .replace(u'\n', QLatin1String("\\n"))
        .replace(u'\t', QLatin1String("\\t"));
    return text.remove(u'\r');
}

QString digits(int value, int width)
{
    return QStringLiteral("%1").arg(value, width, 10, QLatin1Char('0'));
}

QString dayText(const DateComponents &parts)
{
    return digits(parts.year, 4) + digits(parts.month, 2) + digits(parts.day, 2);
}

/// YYYYMMDDTHHMMSSZ.
QString instantText(Date date)
{
    static const Calendar utc({}, TimeZone());
    const DateComponents parts = utc.components(date);
    return dayText(parts) + u'T' + digits(parts.hour, 2) + digits(parts.minute, 2) + digits(parts.second, 2) + u'Z';
}

struct Range
{
    QString start;
    QString end;
};

/// Whole days as days with the end exclusive, all else as instants.
Range rangeOf(const EKEvent &event, const Calendar &calendar)
{
    if (!event.isAllDay())
        return { instantText(event.startDate()), instantText(event.endDate()) };
    const Date dayAfter = calendar.dateByAdding(Calendar::Component::Day, 1, calendar.startOfDay(event.endDate()))
                              .value_or(event.endDate());
    return { dayText(calendar.components(event.startDate())), dayText(calendar.components(dayAfter)) };
}

void print(const EKEvent &event, const Calendar &calendar, const QCommandLineParser &arguments)
{
    const Range range = rangeOf(event, calendar);
    const QString uid = event.calendarItemExternalIdentifier();
    const QString title = event.title().value_or(QString());
    if (arguments.isSet(QStringLiteral("tsv")))
        printLine(QStringList { escaped(uid), range.start, range.end, escaped(title) }.join(u'\t'));
    else if (arguments.isSet(QStringLiteral("json")))
        printJson({ { QStringLiteral("uid"), uid }, { QStringLiteral("start"), range.start },
            { QStringLiteral("end"), range.end }, { QStringLiteral("summary"), title } });
    else
        printLine(QStringLiteral("%1  %2  %3").arg(range.start, range.end, title));
}

} // namespace

void OccurrenceListCommand::addOptions(QCommandLineParser &parser) const
{
    parser.addOptions({
        { QStringLiteral("from"), QStringLiteral("Begin (ISO 8601 or basic UTC)."), QStringLiteral("moment") },
        { QStringLiteral("to"), QStringLiteral("End, exclusive."), QStringLiteral("moment") },
        { QStringLiteral("tsv"), QStringLiteral("UID, start, end and summary with tabs between.") },
        { QStringLiteral("json"), QStringLiteral("One JSON object per line.") },
        { QStringLiteral("count"), QStringLiteral("Only their number.") },
        { QStringLiteral("timing"),
            QStringLiteral("The microseconds for loading and for the query, on standard error.") },
    });
}

Date OccurrenceListCommand::moment(const QCommandLineParser &arguments, const char *option, const TimeZone &timeZone)
{
    const auto date = dateFromIso8601(arguments.value(QLatin1String(option)), timeZone);
    if (!date)
        throw CommandError(
            QStringLiteral("--%1: a moment is needed, as in 20270131T230000Z").arg(QLatin1String(option)));
    return *date;
}

int OccurrenceListCommand::run(const QCommandLineParser &arguments)
{
    AppContext context(ContextOptions::from(arguments));
    const Calendar calendar = context.environment().calendar();
    const EKEventPredicate predicate = this->predicate(arguments, context.environment());
    EKEventStore store(context.database());

    QElapsedTimer timer;
    timer.start();
    if (!store.requestFullAccessToEvents())
        throw CommandError(QStringLiteral("the calendars cannot be read"));
    // The first question is what makes the store read.
    [[maybe_unused]] const auto calendars = store.calendarsForEntityType(EKEntityType::Event);
    const auto loaded = timer.nsecsElapsed() / 1000;
    timer.restart();
    auto events = store.eventsMatchingPredicate(predicate);
    std::erase_if(events, [this](const EKEvent &event) { return !isListed(event); });
    const auto queried = timer.nsecsElapsed() / 1000;

    if (arguments.isSet(QStringLiteral("count")))
        printLine(QString::number(events.size()));
    else
        std::ranges::for_each(events, [&](const EKEvent &event) { print(event, calendar, arguments); });
    if (arguments.isSet(QStringLiteral("timing")))
        std::fprintf(
            stderr, "load_us %lld\nquery_us %lld\n", static_cast<long long>(loaded), static_cast<long long>(queried));
    return 0;
}

} // namespace mintaro
