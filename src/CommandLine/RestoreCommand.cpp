#include "CommandLine/RestoreCommand.h"

#include "CommandLine/WhenText.h"
#include "Platform/EventKit/CalendarDatabase.h"
#include "Platform/EventKit/ICalendarReader.h"

#include <QCoreApplication>

namespace mintaro {

namespace {

using Entry = ChangeJournal::Entry;

/// What a kept object is about: its first event, or else its first reminder.
struct KeptItem
{
    QString title;
    std::optional<EventTime> time {};
    std::size_t others = 0;
};

KeptItem readItem(const QByteArray &text)
{
    const CalendarObject object = readCalendarObject(text, {});
    KeptItem item;
    const std::size_t count = object.schedule.events.size() + object.details.reminders.size();
    if (!object.schedule.events.empty()) {
        const EventSeries &series = object.schedule.events.front();
        const EventTiming &timing = series.master ? *series.master : series.recurrence->exceptions.front().timing;
        item = { object.details.items.at(timing.item)->title, timing.start, count - 1 };
    } else if (!object.details.reminders.empty()) {
        const ReminderRecord &reminder = *object.details.reminders.front();
        item = { reminder.title, reminder.due, count - 1 };
    }
    if (item.title.isEmpty())
        item.title = qtTrId("Untitled");
    return item;
}

/// The calendar's name, or where it is not here what names it.
QString calendarTitle(const Entry &entry, CalendarDatabase &database)
{
    for (const EKCalendarRef &calendar : database.calendars()) {
        if (calendar->calendarIdentifier == entry.place.collection)
            return calendar->title;
    }
    return entry.place.collection;
}

QString reasonText(const Entry &entry)
{
    return entry.reason == ChangeJournal::Reason::Deleted ? QStringLiteral("deleted") : QStringLiteral("changed");
}

QString itemText(const KeptItem &item, const Environment &environment)
{
    QString text = item.title;
    if (item.time) {
        const WhenText when(environment);
        const Date date = item.time->instant(environment.timeZone());
        text += QStringLiteral("  ") + (item.time->form == TimeForm::Day ? when.day(date) : when.moment(date));
    }
    return item.others == 0 ? text : text + QStringLiteral("  and %1 more").arg(item.others);
}

QJsonObject entryJson(const Entry &entry, const KeptItem &item, const QString &calendar, const TimeZone &timeZone)
{
    QJsonObject object { { QStringLiteral("id"), entry.id },
        { QStringLiteral("time"), isoMoment(entry.time, timeZone) }, { QStringLiteral("reason"), reasonText(entry) },
        { QStringLiteral("calendar"), calendar }, { QStringLiteral("title"), item.title } };
    if (item.time) {
        object.insert(QStringLiteral("start"), isoMoment(item.time->instant(timeZone), timeZone));
        object.insert(QStringLiteral("allDay"), item.time->form == TimeForm::Day);
    }
    if (item.others != 0)
        object.insert(QStringLiteral("others"), static_cast<int>(item.others));
    return object;
}

int list(CalendarDatabase &database, const Environment &environment, bool isJson)
{
    const TimeZone timeZone = environment.timeZone();
    auto entries = database.journal();
    std::ranges::reverse(entries);
    for (const Entry &entry : entries) {
        const KeptItem item = readItem(database.journalText(entry.id).value_or(QByteArray()));
        const QString calendar = calendarTitle(entry, database);
        if (isJson)
            printJson(entryJson(entry, item, calendar, timeZone));
        else
            printLine(QStringList { entry.id, isoMoment(entry.time, timeZone).left(16).replace(u'T', u' '),
                reasonText(entry), calendar, itemText(item, environment) }
                          .join(QStringLiteral("  ")));
    }
    if (entries.empty() && !isJson)
        printLine(QStringLiteral("Nothing was changed or deleted in the last 30 days."));
    return 0;
}

/// The entry of this id, or the only one whose id begins so.
Entry entryOf(const QString &id, CalendarDatabase &database)
{
    auto entries = database.journal();
    std::erase_if(entries, [&id](const Entry &entry) { return !entry.id.startsWith(id, Qt::CaseInsensitive); });
    if (entries.empty() || id.isEmpty())
        throw CommandError(QStringLiteral("nothing is kept under \"%1\"; restore without more lists it").arg(id));
    if (entries.size() > 1)
        throw CommandError(QStringLiteral("\"%1\" fits %2 of what is kept").arg(id).arg(entries.size()));
    return entries.front();
}

bool printText(const QByteArray &text)
{
    const auto size = static_cast<std::size_t>(text.size());
    return std::fwrite(text.constData(), 1, size, stdout) == size;
}

} // namespace

QString RestoreCommand::summary() const
{
    return QStringLiteral("restores what was changed or deleted");
}

QString RestoreCommand::details() const
{
    return QStringLiteral("Mintaro keeps what its own changes overwrite and delete for 30 days, as .ics\n"
                          "files in ~/.local/state/mintaro/journal. Without an id this lists them,\n"
                          "the latest first. With an id, or as much of it as is unambiguous, it restores\n"
                          "that entry as it was. Whatever is in its place by now is kept in turn, so that\n"
                          "restoring can be undone.\n\n"
                          "  mintaroctl restore\n"
                          "  mintaroctl restore --show 20261124T150000.123Z-0000\n"
                          "  mintaroctl restore 20261124T150000");
}

void RestoreCommand::addOptions(QCommandLineParser &parser) const
{
    parser.addPositionalArgument(QStringLiteral("id"), QStringLiteral("What to restore."), QStringLiteral("[id]"));
    parser.addOption({ QStringLiteral("show"), QStringLiteral("Print what was kept, and change nothing.") });
    parser.addOption({ QStringLiteral("json"), QStringLiteral("List as one JSON object per line.") });
}

int RestoreCommand::run(const QCommandLineParser &arguments)
{
    const QStringList words = arguments.positionalArguments().mid(1);
    const bool isShowing = arguments.isSet(QStringLiteral("show"));
    if (words.size() > 1 || (isShowing && words.isEmpty()))
        throw CommandError(QStringLiteral("restore: one id is needed; restore without more lists them"));
    AppContext context(ContextOptions::from(arguments));
    CalendarDatabase &database = *context.database();
    if (!database.requestAccess())
        throw CommandError(QStringLiteral("the calendars cannot be read"));
    if (words.isEmpty())
        return list(database, context.environment(), arguments.isSet(QStringLiteral("json")));

    const Entry entry = entryOf(words.front(), database);
    const auto text = database.journalText(entry.id);
    if (!text)
        throw CommandError(QStringLiteral("%1 cannot be read").arg(entry.id));
    if (isShowing)
        return printText(*text) ? 0 : 1;
    const QString outcome
        = database.restore(entry.id) ? QStringLiteral("Restored: %1  (%2)") : QStringLiteral("Already there: %1  (%2)");
    printLine(outcome.arg(itemText(readItem(*text), context.environment()), calendarTitle(entry, database)));
    return 0;
}

} // namespace mintaro
