#include "CommandLine/AddCommand.h"

#include "CommandLine/WhenText.h"
#include "Platform/EventKit/ICalValue.h"
#include "Platform/EventKit/RecurrenceRule.h"
#include "Platform/Foundation/ISO8601.h"
#include "Services/NaturalLanguageParser.h"

#include <QRegularExpression>

namespace mintaro {

namespace {

CommandError wrong(const char *option, const QString &need)
{
    return CommandError(QStringLiteral("--%1: %2").arg(QLatin1String(option), need));
}

std::optional<QString> value(const QCommandLineParser &arguments, const char *option)
{
    const QString name = QLatin1String(option);
    return arguments.isSet(name) ? std::optional(arguments.value(name)) : std::nullopt;
}

/// A day, or a moment in it.
struct When
{
    Date date;
    bool isDay = false;
};

When parseWhen(const QString &text, const char *option, const TimeZone &timeZone)
{
    static const QRegularExpression day(QStringLiteral("^\\d{4}(-?)\\d\\d\\1\\d\\d$"));
    const auto date = dateFromIso8601(text.trimmed(), timeZone);
    if (!date)
        throw wrong(option, QStringLiteral("a moment is needed, as in 2026-11-24T15:00, or a day, as in 2026-11-24"));
    return { *date, day.match(text.trimmed()).hasMatch() };
}

/// Minutes, 1h30m and the like, or a DURATION of RFC 5545.
EventLength parseLength(const QString &text)
{
    static const QRegularExpression minutes(QStringLiteral("^\\d+$"));
    static const QRegularExpression plain(QStringLiteral("^(\\d+D)?((?:\\d+H)?(?:\\d+M)?)$"));
    QString iso = text.trimmed().toUpper();
    if (minutes.match(iso).hasMatch())
        iso = QStringLiteral("PT%1M").arg(iso);
    else if (const auto parts = plain.match(iso); parts.hasMatch())
        iso = u'P' + parts.captured(1) + (parts.captured(2).isEmpty() ? QString() : u'T' + parts.captured(2));
    const auto duration = parseDuration(iso.toUtf8());
    if (!duration || duration->isNegative)
        throw wrong("duration", QStringLiteral("minutes are needed, or a length as in 1h30m, 2d or PT90M"));
    return duration->length;
}

struct Times
{
    Date start;
    Date end;
    bool isAllDay;
};

Date endAfter(const When &start, const EventLength &length, bool isAllDay, const Calendar &calendar)
{
    const auto days = static_cast<int>(length.nominal.count());
    if (isAllDay && (days < 1 || length.exact.count() != 0))
        throw wrong("duration", QStringLiteral("whole days last whole days, as in 2d"));
    // The last day counts.
    const auto end = calendar.dateByAdding(Calendar::Component::Day, isAllDay ? days - 1 : days, start.date);
    if (!end)
        throw wrong("duration", QStringLiteral("too long"));
    return *end + length.exact;
}

/// By the options, and as far as they are silent by what the sentence says.
Times parseTimes(const QCommandLineParser &arguments, const ParsedEvent &sentence, const Calendar &calendar)
{
    const auto option = value(arguments, "start");
    if (!option && !sentence.startDate)
        throw wrong("start", QStringLiteral("when does it begin?"));
    const When start = option ? parseWhen(*option, "start", calendar.timeZone()) : When { *sentence.startDate, false };
    const bool isAllDay = start.isDay || arguments.isSet(QStringLiteral("all-day"));
    const auto end = value(arguments, "end");
    const auto duration = value(arguments, "duration");
    if (!start.isDay && !end && !duration && sentence.startDate)
        return { start.date, start.date + (*sentence.endDate - *sentence.startDate), isAllDay };
    if (end && duration)
        throw wrong("duration", QStringLiteral("there is an --end already"));
    if (duration)
        return { start.date, endAfter(start, parseLength(*duration), isAllDay, calendar), isAllDay };
    if (!end)
        return { start.date, isAllDay ? start.date : start.date + std::chrono::hours { 1 }, isAllDay };
    const When until = parseWhen(*end, "end", calendar.timeZone());
    if (until.isDay != start.isDay && !arguments.isSet(QStringLiteral("all-day")))
        throw wrong("end", QStringLiteral("a day goes with a day, and a moment with a moment"));
    return { start.date, until.date, isAllDay };
}

QString listed(const std::vector<EKCalendarRef> &calendars)
{
    QStringList lines;
    for (const EKCalendarRef &calendar : calendars)
        lines.append(QStringLiteral("\n  %1  (%2)").arg(calendar->title, calendar->calendarIdentifier));
    return lines.isEmpty() ? QStringLiteral(" there is none that can be changed") : lines.join(QString());
}

EKCalendarRef calendarNamed(const QString &name, EKEventStore &store)
{
    auto calendars = store.calendarsForEntityType(EKEntityType::Event);
    std::erase_if(calendars, [](const EKCalendarRef &calendar) { return !calendar->allowsContentModifications; });
    std::vector<EKCalendarRef> fitting;
    for (const EKCalendarRef &calendar : calendars) {
        if (calendar->calendarIdentifier == name)
            return calendar;
        if (calendar->title.compare(name, Qt::CaseInsensitive) == 0)
            fitting.push_back(calendar);
    }
    if (fitting.empty())
        throw wrong("calendar",
            QStringLiteral("no calendar that can be changed is called \"%1\":").arg(name) + listed(calendars));
    if (fitting.size() > 1)
        throw wrong("calendar",
            QStringLiteral("several are called \"%1\", say which by its identifier:").arg(name) + listed(fitting));
    return fitting.front();
}

std::vector<EKRecurrenceRule> parseRules(const QCommandLineParser &arguments)
{
    const auto text = value(arguments, "repeat");
    if (!text)
        return {};
    // What else stands in it would stand in the file, line ends too.
    static const QRegularExpression form(QStringLiteral("\\A[A-Z-]+=[A-Z0-9,+-]+(;[A-Z-]+=[A-Z0-9,+-]+)*\\z"));
    const QString rule = text->toUpper();
    if (!form.match(rule).hasMatch() || !RecurrenceRule::parse(rule.toLatin1()))
        throw wrong("repeat", QStringLiteral("a rule is needed, as in FREQ=WEEKLY;BYDAY=MO,WE;COUNT=10"));
    return { { rule.toLatin1() } };
}

std::vector<EKAlarm> parseAlarms(const QCommandLineParser &arguments)
{
    std::vector<EKAlarm> alarms;
    for (const QString &text : arguments.values(QStringLiteral("alert"))) {
        bool isNumber = false;
        const int minutes = text.toInt(&isNumber);
        if (!isNumber || minutes < 0)
            throw wrong("alert", QStringLiteral("minutes before the start are needed, as in 10"));
        alarms.push_back({ {}, -std::chrono::minutes { minutes } });
    }
    return alarms;
}

EKEvent parseEvent(const QCommandLineParser &arguments, const Environment &environment)
{
    const QString words = arguments.positionalArguments().mid(1).join(u' ');
    const auto sentence = NaturalLanguageParser(environment).parse(words).value_or(ParsedEvent());
    const QString title = value(arguments, "title").value_or(sentence.title).simplified();
    if (title.isEmpty())
        throw wrong("title", QStringLiteral("what is the event called?"));
    const Times times = parseTimes(arguments, sentence, environment.calendar());
    if (times.end < times.start)
        throw wrong("end", QStringLiteral("the event would end before it starts"));
    EKEvent event;
    event.setTitle(title);
    event.setStartDate(times.start);
    event.setEndDate(times.end);
    event.setAllDay(times.isAllDay);
    const auto location = value(arguments, "location");
    event.setLocation(location ? location : sentence.location);
    event.setNotes(value(arguments, "notes"));
    event.setRecurrenceRules(parseRules(arguments));
    event.setAlarms(parseAlarms(arguments));
    return event;
}

} // namespace

QString AddCommand::summary() const
{
    return QStringLiteral("adds an event");
}

QString AddCommand::details() const
{
    return QStringLiteral("Adds an event and prints it. A sentence says what, when and where (see parse);\n"
                          "options override it.\n\n"
                          "  mintaroctl add \"Lunch with Anna tomorrow at noon at Roma\"\n"
                          "  mintaroctl add \"Cena venerdi alle 20\" --calendar Casa --alert 30\n\n"
                          "Moments are written in ISO 8601, as 2026-11-24T15:00 or \"2026-11-24 15:00\",\n"
                          "in the local time of the time zone, or with an offset or Z. A day without a\n"
                          "time, as in 2026-11-24, makes an all-day event, whose --end is its last day.\n"
                          "Without --end and --duration an event lasts an hour, or that whole day.\n\n"
                          "  mintaroctl add --title Lunch --start \"2026-11-24 12:30\" --duration 45\n"
                          "  mintaroctl add --title Holiday --start 2026-12-24 --end 2026-12-27 \\\n"
                          "      --calendar Home\n"
                          "  mintaroctl add --title Choir --start 2026-11-25T19:00 \\\n"
                          "      --repeat FREQ=WEEKLY --alert 30");
}

void AddCommand::addOptions(QCommandLineParser &parser) const
{
    parser.addPositionalArgument(
        QStringLiteral("sentence"), QStringLiteral("What, when and where."), QStringLiteral("[sentence]"));
    const auto add = [&parser](const char *name, const char *text, const char *value) {
        parser.addOption({ QLatin1String(name), QLatin1String(text), QLatin1String(value) });
    };
    add("title", "Its title.", "text");
    add("start", "When it begins: a moment or a day.", "moment");
    add("end", "When it ends; of an all-day event, its last day.", "moment");
    add("duration", "How long it lasts: minutes, or as in 1h30m, 2d, PT90M.", "length");
    parser.addOption({ QStringLiteral("all-day"),
        QStringLiteral("Make it an all-day event, from the day of the start to that of the end.") });
    add("location", "Its location.", "text");
    add("notes", "Its notes.", "text");
    add("calendar", "The calendar's name or identifier; if absent, the default calendar.", "name");
    add("alert", "An alert this many minutes before the start; may be repeated.", "minutes");
    add("repeat", "How it repeats: an RRULE of RFC 5545, as in FREQ=WEEKLY;COUNT=10.", "rule");
    parser.addOption({ QStringLiteral("json"), QStringLiteral("The event as a JSON object.") });
}

int AddCommand::run(const QCommandLineParser &arguments)
{
    AppContext context(ContextOptions::from(arguments));
    EKEvent event = parseEvent(arguments, context.environment());
    EKEventStore store(context.database());
    if (!store.requestFullAccessToEvents())
        throw CommandError(QStringLiteral("the calendars cannot be read"));
    const auto name = value(arguments, "calendar");
    event.setCalendar(name ? calendarNamed(*name, store) : store.defaultCalendarForNewEvents());
    event = store.save(event, EKSpan::ThisEvent);

    const MeetingURLDetector detector;
    const auto added
        = CalendarEvent::fromEvent(event, detector.detectMeetingURL({ event.location(), event.url(), event.notes() }));
    if (arguments.isSet(QStringLiteral("json")))
        printJson(toJson(added, context.environment().timeZone()));
    else
        printLine(
            QStringLiteral("%1  %2  (%3)")
                .arg(added.title, WhenText(context.environment()).range(added.startDate, added.endDate, added.isAllDay),
                    added.calendarTitle));
    return 0;
}

} // namespace mintaro
