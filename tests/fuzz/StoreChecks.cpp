#include "StoreChecks.h"

#include "OtherProgram.h"
#include "Platform/EventKit/ICalendarReader.h"

#include <QStringList>

#include <algorithm>
#include <stdexcept>

namespace mintaro::model {

using namespace std::chrono;

namespace {

QString shown(sys_seconds moment)
{
    return QString::fromLatin1(readingText(rome().toLocal(moment)));
}

QString line(const QString &calendar, const QString &uid, const When &when, const Says &says)
{
    QStringList alarms;
    for (const seconds each : says.alarms)
        alarms.append(QString::number(each.count()));
    alarms.sort();
    return QStringList { calendar, uid, shown(when.shownStart()), shown(when.shownEnd()),
        when.form == Form::Day ? QStringLiteral("day") : QString(), says.title, says.location, says.notes,
        alarms.join(u' ') }
        .join(u'|');
}

/// As `line` says what the model has.
QString lineOf(const EKEvent &event)
{
    Says says { {}, event.title().value_or(QString()), event.location().value_or(QString()),
        event.notes().value_or(QString()), {}, {} };
    for (const EKAlarm &each : event.alarms())
        says.alarms.push_back(each.relativeOffset);
    const auto moment = [](Date date) { return LocalTime { floor<seconds>(date).time_since_epoch() }; };
    const bool isDay = event.isAllDay();
    When when { Form::Utc, moment(event.startDate()),
        event.endDate() - event.startDate() > milliseconds { 0 } ? floor<seconds>(event.endDate() - event.startDate())
                                                                 : seconds { 0 } };
    if (isDay) {
        const LocalTime start = rome().toLocal(floor<seconds>(event.startDate()));
        when = { Form::Day, start, rome().toLocal(floor<seconds>(event.endDate())) + seconds { 1 } - start };
    }
    return line(event.calendar()->calendarIdentifier, event.calendarItemExternalIdentifier(), when, says);
}

QStringList wantedEvents(const Calendars &calendars)
{
    QStringList lines;
    const EKEventPredicate window = longWindow();
    for (const Series &series : calendars.all) {
        for (const LocalTime start : series.live()) {
            const Says says = series.at(start);
            if (says.when.shownStart() < window.end)
                lines.append(line(series.calendar, series.uid, says.when, says));
        }
    }
    lines.sort();
    return lines;
}

QString reminderLine(const QString &calendar, const QString &uid, const QString &title, LocalTime due, bool isCompleted)
{
    return QStringList { calendar, uid, title, QString::fromLatin1(readingText(due)),
        isCompleted ? QStringLiteral("done") : QString() }
        .join(u'|');
}

void requireSame(const QStringList &wanted, const QStringList &given)
{
    QString difference;
    for (const QString &each : wanted) {
        if (wanted.count(each) != given.count(each))
            difference += QStringLiteral("\n  missing: ") + each;
    }
    for (const QString &each : given) {
        if (wanted.count(each) != given.count(each))
            difference += QStringLiteral("\n  wrong:   ") + each;
    }
    require(difference.isEmpty(), "the store answers otherwise" + difference.left(3000).toStdString());
}

void checkLines(const QByteArray &text)
{
    require(text.endsWith("\r\n"), "a line without its end");
    for (const QByteArray &line : text.split('\n'))
        require(line.size() <= 76, "a line that is too long: " + line.toStdString());
    for (const QByteArray &line : linesOf(text)) {
        const QByteArray zone = line.contains(";TZID=") ? line.mid(line.indexOf(";TZID=") + 6).split(':').front() : "";
        require(zone.isEmpty() || text.contains("TZID:" + zone + "\r\n"), "a zone that nothing explains");
    }
}

/// The parameters of a line, and whether its value is in UTC.
std::pair<QByteArray, bool> formOf(const QByteArray &component, const QByteArray &name)
{
    for (const QByteArray &line : linesOf(component)) {
        if (line.startsWith(name + ':') || line.startsWith(name + ';'))
            return { line.mid(name.size(), line.indexOf(':') - name.size()), line.endsWith('Z') };
    }
    return {};
}

void checkEvents(const QByteArray &text)
{
    const std::vector<QByteArray> events = componentsOf(text, "VEVENT");
    for (const QByteArray &each : events) {
        const auto isMaster
            = [&](const QByteArray &other) { return uidOf(other) == uidOf(each) && !isException(other); };
        require(
            std::count_if(events.begin(), events.end(), isMaster) == 1, "an event that is there twice, or headless");
        const QByteArray id = valueOf(each, "RECURRENCE-ID");
        const auto isSame = [&](const QByteArray &other) {
            return uidOf(other) == uidOf(each) && valueOf(other, "RECURRENCE-ID") == id;
        };
        require(std::count_if(events.begin(), events.end(), isSame) == 1, "two exceptions for one occurrence");
        const QByteArray master = *std::find_if(events.begin(), events.end(), isMaster);
        for (const char *name : { "RECURRENCE-ID", "EXDATE", "RDATE" }) {
            const QByteArray &holder = QByteArrayView(name) == "RECURRENCE-ID" ? each : master;
            require(valueOf(holder, name).isEmpty() || formOf(holder, name) == formOf(master, "DTSTART"),
                std::string(name) + " has another form than DTSTART");
        }
    }
}

/// The components of each UID in a calendar.
std::map<QString, std::vector<QByteArray>> itemsOf(const std::map<QString, QByteArray> &objects)
{
    std::map<QString, std::vector<QByteArray>> items;
    for (const auto &[name, text] : objects) {
        for (const char *kind : { "VEVENT", "VTODO" }) {
            for (const QByteArray &each : componentsOf(text, kind))
                items[QString::fromUtf8(uidOf(each))].push_back(each);
        }
    }
    return items;
}

} // namespace

Contents contentsOf(const MemoryBackend &backend)
{
    Contents contents;
    for (const StoreCollection &collection : backend.held) {
        auto &objects = contents[collection.identifier];
        const auto found = backend.contents.find(collection.identifier);
        for (const auto &[name, object] :
            found == backend.contents.end() ? std::map<QString, MemoryBackend::Object>() : found->second)
            objects[name] = object.text;
    }
    return contents;
}

EKEventPredicate longWindow()
{
    return { sys_days { year { 2025 } / 12 / 1 },
        sys_days { year { 2027 } / 5 / 20 } + hours { 3 } + seconds { 1043 } };
}

void require(bool holds, const std::string &otherwise)
{
    if (!holds)
        throw std::logic_error(otherwise);
}

void checkAnswers(CalendarDatabase &database, const Calendars &calendars, const std::vector<Reminder> &reminders)
{
    require(database.requestAccess(), "no access");
    QStringList events;
    for (const EKEvent &each : database.events(longWindow()))
        events.append(lineOf(each));
    events.sort();
    const QStringList wanted = wantedEvents(calendars);
    if (events != wanted)
        requireSame(wanted, events);
    QStringList given;
    for (const EKReminder &each : database.reminders({})) {
        const auto due = each.dueDateComponents();
        require(due.has_value(), "a reminder without its time");
        given.append(reminderLine(each.calendar()->calendarIdentifier, each.record()->uid, each.title(),
            readingOf(due->components), each.isCompleted()));
    }
    QStringList due;
    for (const Reminder &each : reminders)
        due.append(reminderLine(each.calendar, each.uid, each.title, each.due, each.isCompleted));
    requireSame(due, given);
}

void checkTexts(const Contents &contents)
{
    for (const auto &[collection, objects] : contents) {
        std::set<QByteArray> uids;
        for (const auto &[name, text] : objects) {
            checkLines(text);
            const CalendarObject read = readCalendarObject(text, {});
            require(read.schedule.complaint.isEmpty(), "complaint: " + read.schedule.complaint.toStdString());
            std::set<QByteArray> here;
            for (const char *kind : { "VEVENT", "VTODO" }) {
                for (const QByteArray &each : componentsOf(text, kind))
                    here.insert(uidOf(each));
            }
            require(!here.empty(), "an object without anything in it");
            for (const QByteArray &uid : here)
                require(!uid.isEmpty() && uids.insert(uid).second, "a UID in two objects: " + uid.toStdString());
            checkEvents(text);
        }
    }
}

void checkTags(const Contents &contents, const Calendars &calendars)
{
    for (const Series &series : calendars.all) {
        QByteArray all;
        QByteArray masters;
        QByteArray exceptions;
        for (const auto &[name, text] : contents.at(series.calendar)) {
            for (const QByteArray &each : componentsOf(text, "VEVENT")) {
                if (uidOf(each) != series.uid.toUtf8())
                    continue;
                all = linesOf(text).join('\n');
                (isException(each) ? exceptions : masters) += linesOf(each).join('\n');
            }
        }
        const auto holds = [](const QByteArray &text, const Tags &tags) {
            return std::all_of(
                tags.begin(), tags.end(), [&text](const QByteArray &tag) { return text.contains('\n' + tag + '\n'); });
        };
        require(holds(all, series.calendarTags), "a line of another program is gone from the calendar");
        require(holds(masters, series.base.tags), "a line of another program is gone from the event");
        for (const auto &[start, says] : series.own)
            require(holds(exceptions, says.tags), "a line of another program is gone from an exception");
    }
}

void checkOthers(const Contents &before, const Contents &after, const std::set<QString> &touched)
{
    for (const auto &[collection, objects] : before) {
        const auto then = itemsOf(objects);
        auto now = itemsOf(after.at(collection));
        for (const auto &[uid, components] : then)
            require(touched.contains(uid) || now[uid] == components, "another event was changed: " + uid.toStdString());
        for (const auto &[name, text] : objects) {
            const auto items = itemsOf({ { name, text } });
            const bool isOther = std::none_of(
                items.begin(), items.end(), [&](const auto &each) { return touched.contains(each.first); });
            const auto found = after.at(collection).find(name);
            require(!isOther || (found != after.at(collection).end() && found->second == text),
                "another object was changed: " + name.toStdString());
        }
    }
}

} // namespace mintaro::model
