#include "OperationChecks.h"

#include "Draw.h"
#include "StoreChecks.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <stdexcept>

namespace mintaro {

using namespace std::chrono;
using namespace model;

namespace {

const std::array<QString, 2> kCalendars { QStringLiteral("home"), QStringLiteral("work") };
/// From how many on nothing is added, and nothing at all divided.
constexpr std::size_t kEnoughSeries = 7;
constexpr std::size_t kMostSeries = 12;
constexpr int kMostSteps = 30;

QString nameOf(EKSpan span)
{
    return span == EKSpan::ThisEvent ? QStringLiteral("this") : QStringLiteral("future");
}

QString textOf(const Changes &changes)
{
    QStringList parts;
    const auto moment = [](sys_seconds at) { return QString::fromLatin1(readingText(rome().toLocal(at))); };
    if (changes.title)
        parts.append(QStringLiteral("title=") + *changes.title);
    if (changes.location)
        parts.append(QStringLiteral("location=") + *changes.location);
    if (changes.notes)
        parts.append(QStringLiteral("notes=") + *changes.notes);
    if (changes.start)
        parts.append(QStringLiteral("start=") + moment(*changes.start));
    if (changes.end)
        parts.append(QStringLiteral("end=") + moment(*changes.end));
    if (changes.allDay)
        parts.append(QStringLiteral("allDay=%1").arg(*changes.allDay));
    if (changes.alarms)
        parts.append(QStringLiteral("alarms(%1)").arg(changes.alarms->size()));
    if (changes.rule)
        parts.append(QStringLiteral("rule=") + QString::fromLatin1(changes.rule->text(Form::Rome, {})));
    if (changes.endsRepeating)
        parts.append(QStringLiteral("no rule"));
    if (changes.calendar)
        parts.append(QStringLiteral("calendar=") + *changes.calendar);
    return parts.join(QStringLiteral(", "));
}

/// What is set to the value that it has is no change.
Changes withoutSame(Changes changes, const Series &series, const Says &seen)
{
    const auto drop = [](auto &change, const auto &value) {
        if (change && *change == value)
            change.reset();
    };
    drop(changes.title, seen.title);
    drop(changes.location, seen.location);
    drop(changes.notes, seen.notes);
    drop(changes.start, seen.when.shownStart());
    drop(changes.end, seen.when.shownEnd());
    drop(changes.allDay, seen.when.form == Form::Day);
    drop(changes.calendar, series.calendar);
    return changes;
}

class OperationRun
{
public:
    explicit OperationRun(const QByteArray &bytes);
    void run();

private:
    using Action = std::function<void()>;
    /// What is done to the store, and what it means. `uid` is what it is done to, empty for what is new.
    struct Operation
    {
        QString calendar {};
        QString uid {};
        LocalTime original {};
        Action store;
        Action meaning;
        /// Times or rules are changed too, so that not every change of another program goes with it.
        bool isWide = false;
        /// Whether it makes sense by then.
        std::function<bool()> isPossible = [] { return true; };
    };

    void step();
    void attempt(const Operation &operation);
    void edit(const QString &calendar, const QString &uid, std::size_t kind, LocalTime original);
    void editText(Series &series, std::size_t kind, LocalTime original, QByteArray &text);
    void check();

    void create();
    void put();
    void changeSome();
    void applyChanges(const Place &place, const Changes &changes, EKSpan span);
    void removeSome();
    void moveSome();
    void changeRules();
    void putReminder();
    void completeReminder();
    void editAlone();
    void copyObject();

    [[nodiscard]] std::optional<Place> drawPlace();
    [[nodiscard]] EKSpan drawSpan() { return m_choices.oneIn(2) ? EKSpan::FutureEvents : EKSpan::ThisEvent; }
    [[nodiscard]] QString newUid() { return QStringLiteral("other-%1").arg(++m_number); }
    [[nodiscard]] std::optional<std::size_t> find(const QString &calendar, const QString &uid) const;
    [[nodiscard]] QString objectOf(const QString &calendar, const QString &uid) const;
    [[nodiscard]] EKEvent handleOf(const Place &place);
    [[nodiscard]] EKCalendarRef calendarRef(const QString &identifier);
    void set(EKEvent &event, const Changes &changes, const QByteArray &rule);
    void takeResult(const EKEvent &result, const Place &place);

    Choices m_choices;
    FixedClock m_clock { sys_days { year { 2026 } / 3 / 1 } };
    Environment m_environment { m_clock, Locale {}, rome() };
    NotificationCenter m_notifications;
    MemoryBackend *m_backend = nullptr;
    std::shared_ptr<CalendarDatabase> m_database;
    Calendars m_model;
    std::vector<Reminder> m_reminders;
    int m_number = 0;
    QStringList m_story;
};

std::unique_ptr<MemoryBackend> newBackend()
{
    auto backend = std::make_unique<MemoryBackend>();
    for (const QString &each : kCalendars)
        backend->addCollection(each);
    return backend;
}

Logger silence()
{
    return Logger(QStringLiteral("EventStore"), [](const LogMessage &) {});
}

OperationRun::OperationRun(const QByteArray &bytes)
    : m_choices(bytes)
{
    auto backend = newBackend();
    m_backend = backend.get();
    m_database
        = std::make_shared<CalendarDatabase>(std::move(backend), nullptr, m_environment, m_notifications, silence());
    m_database->follow();
}

void OperationRun::run()
{
    try {
        require(m_database->requestAccess(), "no access");
        for (int steps = 0; steps < kMostSteps && !m_choices.areSpent(); ++steps)
            step();
    } catch (const std::exception &error) {
        QByteArray texts;
        for (const auto &[collection, objects] : contentsOf(*m_backend)) {
            for (const auto &[name, text] : objects)
                texts += "--- " + collection.toUtf8() + '/' + name.toUtf8() + '\n' + text;
        }
        throw std::logic_error(
            error.what() + std::string("\n") + m_story.join(u'\n').toStdString() + '\n' + texts.toStdString());
    }
}

void OperationRun::step()
{
    static constexpr std::array<void (OperationRun::*)(), 14> kOperations { &OperationRun::put,
        &OperationRun::changeSome, &OperationRun::create, &OperationRun::changeSome, &OperationRun::changeSome,
        &OperationRun::changeSome, &OperationRun::removeSome, &OperationRun::moveSome, &OperationRun::changeRules,
        &OperationRun::changeRules, &OperationRun::editAlone, &OperationRun::putReminder,
        &OperationRun::completeReminder, &OperationRun::copyObject };
    (this->*m_choices.of(kOperations))();
    check();
}

void OperationRun::check()
{
    const Contents contents = contentsOf(*m_backend);
    checkTexts(contents);
    checkAnswers(*m_database, m_model, m_reminders);
    checkTags(contents, m_model);
    auto backend = newBackend();
    backend->contents = m_backend->contents;
    CalendarDatabase anew(std::move(backend), nullptr, m_environment, m_notifications, silence());
    checkAnswers(anew, m_model, m_reminders);
}

// ---- Doing one thing while others happen ----

/// Either all of it is done, and only that, or nothing.
void OperationRun::attempt(const Operation &operation)
{
    enum Disturbance { None, EditBefore, EditDuring, Failure };
    static constexpr std::array<Disturbance, 8> kDisturbances { None, None, None, None, EditBefore, EditDuring, Failure,
        EditBefore };
    const Disturbance disturbance = m_choices.of(kDisturbances);
    const std::size_t kind = m_choices.below(operation.isWide ? 5 : 7);
    const std::size_t at = m_choices.below(3);
    const bool isEvent = find(operation.calendar, operation.uid).has_value();
    const auto exists = [&] {
        const auto found = find(operation.calendar, operation.uid);
        return !isEvent || (found && m_model.all[*found].isLive(operation.original));
    };
    bool hasEdited = false;
    bool hasFailed = false;
    const auto editNow = [&] {
        edit(operation.calendar, operation.uid, kind, operation.original);
        hasEdited = true;
    };
    if (disturbance == EditBefore && isEvent)
        editNow();
    Contents before = contentsOf(*m_backend);
    std::size_t writes = 0;
    m_backend->onWrite = [&] {
        if (writes++ != at)
            return;
        if (disturbance == EditDuring && isEvent) {
            const Contents begun = contentsOf(*m_backend);
            editNow();
            Contents edited = contentsOf(*m_backend);
            // What is new stays only where all of it is done.
            for (const QString &calendar : kCalendars) {
                std::erase_if(edited[calendar], [&](const auto &each) {
                    return begun.at(calendar).contains(each.first) && !before.at(calendar).contains(each.first);
                });
            }
            before = std::move(edited);
        } else if (disturbance == Failure) {
            hasFailed = true;
            m_story.append(QStringLiteral("  a write fails"));
            throw EKError("The disk is full.");
        }
    };
    bool isRefused = false;
    std::string refusal;
    try {
        operation.store();
    } catch (const EKError &error) {
        isRefused = true;
        refusal = error.what();
        m_story.append(QStringLiteral("  refused: ") + QString::fromUtf8(error.what()));
    }
    m_backend->onWrite = [] {};
    if (hasEdited)
        m_backend->tell({ false, { { kCalendars[0], {} }, { kCalendars[1], {} } } });
    require(isRefused == (hasFailed || !exists() || !operation.isPossible()),
        isRefused ? "refused: " + refusal : "should have been refused");
    if (isRefused)
        return require(before == contentsOf(*m_backend), "refused, and yet something changed");
    operation.meaning();
    checkOthers(before, contentsOf(*m_backend), { operation.uid });
}

/// What another program does to an event. Kinds from 5 on are for where no times move.
void OperationRun::edit(const QString &calendar, const QString &uid, std::size_t kind, LocalTime original)
{
    Series &series = m_model.all.at(find(calendar, uid).value());
    const QString name = objectOf(calendar, uid);
    auto &objects = m_backend->contents[calendar];
    QByteArray text = objects.at(name).text;
    const auto inObject
        = [&](const Series &each) { return each.calendar == calendar && objectOf(calendar, each.uid) == name; };
    if (kind == 0) {
        m_story.append(QStringLiteral("  another program renames %1").arg(name));
        objects.erase(name);
        m_backend->put(calendar, QStringLiteral("renamed-%1.ics").arg(++m_number), text);
    } else if (kind == 1) {
        m_story.append(QStringLiteral("  another program removes %1").arg(name));
        std::erase_if(m_model.all, inObject);
        objects.erase(name);
    } else {
        editText(series, kind, original, text);
        m_backend->put(calendar, name, text);
    }
}

void OperationRun::editText(Series &series, std::size_t kind, LocalTime original, QByteArray &text)
{
    TextEditor editor(text, series);
    const QByteArray tag = drawTag(m_choices, ++m_number);
    const bool isTaken = series.own.contains(original) || !series.isLive(original);
    if (kind == 2) {
        m_story.append(QStringLiteral("  another program adds a line to %1 and its exceptions").arg(series.uid));
        editor.addLine(tag);
        editor.addLineToExceptions(tag);
        series.base.tags.insert(tag);
        for (auto &[start, says] : series.own)
            says.tags.insert(tag);
    } else if (kind == 3) {
        m_story.append(QStringLiteral("  another program adds a line round %1").arg(series.uid));
        editor.addLineToCalendar(tag);
        for (Series &each : m_model.all) {
            if (each.calendar == series.calendar
                && objectOf(each.calendar, each.uid) == objectOf(each.calendar, series.uid))
                each.calendarTags.insert(tag);
        }
    } else if (kind == 4 || !series.repeats || isTaken) {
        const QString location = drawText(m_choices);
        m_story.append(QStringLiteral("  another program writes LOCATION:%1 to %2").arg(location, series.uid));
        editor.setText("LOCATION", location);
        series.base.location = location;
    } else if (kind == 5 && series.live().size() > 1) {
        m_story.append(
            QStringLiteral("  another program takes out %1").arg(QString::fromLatin1(readingText(original))));
        editor.exclude(original);
        series.excluded.insert(original);
    } else {
        Says says = series.at(original);
        says.title = drawText(m_choices);
        m_story.append(QStringLiteral("  another program changes %1 alone to \"%2\"")
                           .arg(QString::fromLatin1(readingText(original)), says.title));
        editor.addException(original, says);
        series.own[original] = says;
    }
    text = editor.text();
}

// ---- What users do ----

void OperationRun::create()
{
    if (m_model.all.size() >= kEnoughSeries)
        return;
    const Form form = m_choices.oneIn(3) ? Form::Day : Form::Rome;
    const When when = drawWhen(m_choices, form);
    const bool repeats = m_choices.oneIn(2);
    const QString calendar = m_choices.of(kCalendars);
    Changes changes;
    changes.title = drawText(m_choices);
    changes.location = drawText(m_choices);
    changes.notes = drawText(m_choices);
    changes.alarms = drawAlarms(m_choices);
    changes.start = when.shownStart();
    changes.end = when.shownEnd();
    changes.allDay = form == Form::Day;
    changes.calendar = calendar;
    const When to = changedWhen(when, changes, !repeats);
    if (repeats)
        changes.rule = drawRule(m_choices, to.form, to.start);
    m_story.append(QStringLiteral("create ") + textOf(changes));
    EKEvent result;
    attempt({ .store =
                  [&] {
                      EKEvent event;
                      set(event, changes, repeats ? changes.rule->text(to.form, to.start) : QByteArray());
                      result = m_database->save(event, EKSpan::ThisEvent);
                  },
        .meaning =
            [&] {
                const Says says { to, *changes.title, *changes.location, *changes.notes, *changes.alarms, {} };
                m_model.all.push_back({ calendar, {}, says, false, false, Grid::Days, { to.start }, {}, {}, {}, {} });
                if (repeats)
                    m_model.all.back().setRule(*changes.rule, to.start);
                takeResult(result, { m_model.all.size() - 1, to.start });
            } });
}

void OperationRun::changeSome()
{
    const auto place = drawPlace();
    if (!place)
        return;
    const EKSpan span = drawSpan();
    const Changes drawn = drawChanges(m_choices, m_model.all[place->series].at(place->original).when);
    applyChanges(*place, drawn, span);
}

void OperationRun::moveSome()
{
    const auto place = drawPlace();
    if (!place)
        return;
    const EKSpan span = drawSpan();
    Changes changes;
    if (m_choices.oneIn(3))
        changes = drawChanges(m_choices, m_model.all[place->series].at(place->original).when);
    changes.calendar = m_choices.of(kCalendars);
    applyChanges(*place, changes, span);
}

void OperationRun::changeRules()
{
    const auto place = drawPlace();
    if (!place)
        return;
    const EKSpan span = drawSpan();
    const Series &series = m_model.all[place->series];
    const When seen = series.at(place->original).when;
    Changes changes;
    if (m_choices.oneIn(3))
        changes = drawChanges(m_choices, seen);
    changes.endsRepeating = series.repeats && m_choices.oneIn(3);
    const bool isAlone = !series.repeats || span == EKSpan::ThisEvent;
    const When to = changedWhen(seen, changes, isAlone);
    const LocalTime first = isAlone || !(to == seen) ? to.start : place->original;
    const Form form = isAlone || !(to == seen) ? to.form : series.base.when.form;
    if (!changes.endsRepeating)
        changes.rule = drawRule(m_choices, form, first);
    applyChanges(*place, changes, span);
}

void OperationRun::applyChanges(const Place &place, const Changes &drawn, EKSpan span)
{
    const Series series = m_model.all[place.series];
    const Says seen = series.at(place.original);
    Changes changes = withoutSame(drawn, series, seen);
    if (m_model.all.size() >= kMostSeries || !isPlain(series, place.original, changes, span))
        return;
    EKEvent event = handleOf(place);
    QByteArray rule;
    if (changes.rule) {
        const bool isAlone = !series.repeats || span == EKSpan::ThisEvent;
        const When to = changedWhen(seen.when, changes, isAlone);
        const bool isOwn = isAlone || !(to == seen.when);
        rule = changes.rule->text(isOwn ? to.form : series.base.when.form, isOwn ? to.start : place.original);
        if (!event.recurrenceRules().empty() && event.recurrenceRules().front().rule == rule)
            changes.rule.reset();
    }
    set(event, changes, rule);
    m_story.append(QStringLiteral("change %1/%2 of %3 (%4): %5")
                       .arg(series.calendar, series.uid, QString::fromLatin1(readingText(place.original)), nameOf(span),
                           textOf(changes)));
    if (!event.changes())
        return;
    const auto isBeside = [&](const Series &each) {
        return each.calendar == series.calendar
            && objectOf(each.calendar, each.uid) == objectOf(series.calendar, series.uid);
    };
    const bool isShared = std::count_if(m_model.all.begin(), m_model.all.end(), isBeside) > 1;
    EKEvent result;
    attempt({ series.calendar, series.uid, place.original, [&] { result = m_database->save(event, span); },
        [&] {
            const Place now { find(series.calendar, series.uid).value(), place.original };
            takeResult(result, m_model.change(now, changes, span));
            // What stands round several events stays with those that stay.
            const auto moved = changes.calendar && isShared ? find(*changes.calendar, series.uid) : std::nullopt;
            if (moved)
                m_model.all[*moved].calendarTags.clear();
        },
        changes.changesTime() || changes.changesRules(),
        [&] {
            // The whole of it cannot go where it is already.
            const Series &now = m_model.all[find(series.calendar, series.uid).value()];
            const bool isWhole = !now.repeats || (span == EKSpan::FutureEvents && now.isFirst(place.original));
            return !changes.calendar || !isWhole || !find(*changes.calendar, series.uid);
        } });
}

void OperationRun::removeSome()
{
    const auto place = drawPlace();
    if (!place)
        return;
    const EKSpan span = drawSpan();
    const QString calendar = m_model.all[place->series].calendar;
    const QString uid = m_model.all[place->series].uid;
    const EKEvent event = handleOf(*place);
    m_story.append(QStringLiteral("remove %1/%2 of %3 (%4)")
                       .arg(calendar, uid, QString::fromLatin1(readingText(place->original)), nameOf(span)));
    attempt({ calendar, uid, place->original, [&] { m_database->remove(event, span); },
        [&] {
            m_model.remove({ find(calendar, uid).value(), place->original }, span);
        } });
}

// ---- What other programs do while nobody looks ----

void OperationRun::put()
{
    if (m_model.all.size() >= kEnoughSeries)
        return;
    const QString calendar = m_choices.of(kCalendars);
    std::vector<NewEvent> events;
    for (std::size_t i = m_choices.oneIn(4) ? 2 : 1; i > 0; --i)
        events.push_back(drawEvent(m_choices, calendar, newUid()));
    for (const NewEvent &each : events)
        m_model.all.push_back(each.series);
    const QString name = events.front().series.uid + QStringLiteral(".ics");
    m_story.append(QStringLiteral("put ") + calendar + u'/' + name + u'\n'
        + QString::fromUtf8(objectText(events)).section(QStringLiteral("END:VTIMEZONE\r\n"), 2));
    m_backend->put(calendar, name, objectText(events));
    m_backend->tell({ false, { { calendar, { name } } } });
}

void OperationRun::editAlone()
{
    const auto place = drawPlace();
    if (!place)
        return;
    Series &series = m_model.all[place->series];
    const QString calendar = series.calendar;
    const std::size_t kind = m_choices.below(9);
    if (kind < 7 || series.repeats) {
        edit(calendar, series.uid, std::min<std::size_t>(kind, 6), place->original);
    } else {
        series.base.when = drawWhen(m_choices, kind == 7 ? Form::Utc : Form::Day);
        series.starts = { series.base.when.start };
        const QString name = objectOf(calendar, series.uid);
        TextEditor editor(m_backend->contents[calendar].at(name).text, series);
        editor.setTimes(series.base.when);
        m_story.append(QStringLiteral("another program moves ") + series.uid);
        m_backend->put(calendar, name, editor.text());
    }
    m_backend->tell({ false, { { calendar, {} } } });
}

/// Then one event is in two calendars, and cannot be moved from the one to the other.
void OperationRun::copyObject()
{
    const auto place = drawPlace();
    if (!place || m_model.all.size() >= kEnoughSeries)
        return;
    const QString from = m_model.all[place->series].calendar;
    const QString to = from == kCalendars[0] ? kCalendars[1] : kCalendars[0];
    const QString name = objectOf(from, m_model.all[place->series].uid);
    std::vector<Series> copies;
    for (const Series &each : m_model.all) {
        if (each.calendar != from || objectOf(from, each.uid) != name)
            continue;
        if (find(to, each.uid))
            return;
        copies.push_back(each);
        copies.back().calendar = to;
    }
    m_story.append(QStringLiteral("another program copies %1/%2").arg(from, name));
    m_model.all.insert(m_model.all.end(), copies.begin(), copies.end());
    m_backend->put(to, QStringLiteral("copy-%1.ics").arg(++m_number), m_backend->contents[from].at(name).text);
    m_backend->tell({ false, { { to, {} } } });
}

// ---- Reminders ----

void OperationRun::putReminder()
{
    if (m_reminders.size() >= kEnoughSeries)
        return;
    Reminder reminder { m_choices.of(kCalendars), newUid(), QStringLiteral("Water the plants"),
        drawReading(m_choices) };
    QByteArray rule;
    if (m_choices.oneIn(2)) {
        reminder.step = days { m_choices.oneIn(2) ? 7 : 1 };
        reminder.count = static_cast<int>(m_choices.below(3)) + 1;
        rule = QByteArray("RRULE:FREQ=") + (reminder.step == days { 7 } ? "WEEKLY" : "DAILY")
            + ";COUNT=" + QByteArray::number(reminder.count) + "\r\n";
    }
    const QByteArray text = "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//other//EN\r\nBEGIN:VTODO\r\nUID:"
        + reminder.uid.toUtf8() + "\r\nDTSTAMP:20260101T000000Z\r\nDUE:" + readingText(reminder.due) + "\r\n" + rule
        + "SUMMARY:Water the plants\r\nEND:VTODO\r\nEND:VCALENDAR\r\n";
    m_story.append(QString::fromUtf8(text));
    const QString name = reminder.uid + QStringLiteral(".ics");
    m_backend->put(reminder.calendar, name, text);
    m_backend->tell({ false, { { reminder.calendar, { name } } } });
    m_reminders.push_back(reminder);
}

void OperationRun::completeReminder()
{
    if (m_reminders.empty())
        return;
    const std::size_t at = m_choices.below(m_reminders.size());
    const Reminder reminder = m_reminders[at];
    const auto all = m_database->reminders({});
    const auto found = std::find_if(all.begin(), all.end(), [&](const EKReminder &each) {
        return each.record()->uid == reminder.uid && each.calendar()->calendarIdentifier == reminder.calendar;
    });
    require(found != all.end(), "no handle on a reminder");
    EKReminder handle = *found;
    handle.setCompleted(!reminder.isCompleted);
    handle.setCompletionDate(reminder.isCompleted ? std::nullopt : std::optional(m_environment.now()));
    m_story.append((reminder.isCompleted ? QStringLiteral("open ") : QStringLiteral("complete ")) + reminder.uid);
    attempt({ .uid = reminder.uid,
        .store = [&] { m_database->save(handle); },
        .meaning =
            [&] {
                m_reminders[at].isCompleted = !reminder.isCompleted;
                m_reminders[at].count = 1;
                if (reminder.isCompleted || reminder.count == 1)
                    return;
                Reminder next = reminder;
                next.due += next.step;
                --next.count;
                for (const EKReminder &each : m_database->reminders({})) {
                    const auto isHere = [&](const Reminder &one) { return one.uid == each.record()->uid; };
                    if (std::none_of(m_reminders.begin(), m_reminders.end(), isHere))
                        next.uid = each.record()->uid;
                }
                m_reminders.push_back(next);
            } });
}

// ---- Helpers ----

/// An occurrence that its start tells from the others of its series.
std::optional<Place> OperationRun::drawPlace()
{
    if (m_model.all.empty())
        return std::nullopt;
    const Place place { m_choices.below(m_model.all.size()), {} };
    const Series &series = m_model.all[place.series];
    std::vector<LocalTime> starts;
    std::multiset<sys_seconds> shown;
    for (const LocalTime each : series.live()) {
        shown.insert(series.at(each).when.shownStart());
        if (each < LocalTime { longWindow().end.time_since_epoch() / seconds { 1 } * seconds { 1 } } - days { 9 })
            starts.push_back(each);
    }
    std::erase_if(starts, [&](LocalTime each) { return shown.count(series.at(each).when.shownStart()) > 1; });
    if (starts.empty())
        return std::nullopt;
    return Place { place.series, starts[m_choices.below(std::min<std::size_t>(starts.size(), 40))] };
}

std::optional<std::size_t> OperationRun::find(const QString &calendar, const QString &uid) const
{
    const auto found = std::find_if(m_model.all.begin(), m_model.all.end(),
        [&](const Series &each) { return each.calendar == calendar && each.uid == uid; });
    return found == m_model.all.end() ? std::nullopt
                                      : std::optional(static_cast<std::size_t>(found - m_model.all.begin()));
}

QString OperationRun::objectOf(const QString &calendar, const QString &uid) const
{
    for (const auto &[name, object] : m_backend->contents.at(calendar)) {
        if (object.text.contains("\r\nUID:" + uid.toUtf8() + "\r\n"))
            return name;
    }
    throw std::logic_error("no object of " + uid.toStdString());
}

EKEvent OperationRun::handleOf(const Place &place)
{
    const Series &series = m_model.all[place.series];
    const Date start = series.at(place.original).when.shownStart();
    for (EKEvent &each : m_database->events(longWindow())) {
        if (each.calendar()->calendarIdentifier == series.calendar
            && each.calendarItemExternalIdentifier() == series.uid && each.startDate() == start)
            return std::move(each);
    }
    throw std::logic_error("no handle on " + series.uid.toStdString());
}

EKCalendarRef OperationRun::calendarRef(const QString &identifier)
{
    for (const EKCalendarRef &each : m_database->calendars()) {
        if (each->calendarIdentifier == identifier)
            return each;
    }
    throw std::logic_error("no calendar");
}

void OperationRun::set(EKEvent &event, const Changes &changes, const QByteArray &rule)
{
    if (changes.title)
        event.setTitle(changes.title);
    if (changes.location)
        event.setLocation(changes.location);
    if (changes.notes)
        event.setNotes(changes.notes);
    if (changes.allDay)
        event.setAllDay(*changes.allDay);
    if (changes.start)
        event.setStartDate(*changes.start);
    if (changes.end)
        event.setEndDate(*changes.end);
    if (changes.alarms) {
        std::vector<EKAlarm> alarms;
        for (const seconds offset : *changes.alarms)
            alarms.push_back({ std::nullopt, offset });
        event.setAlarms(alarms);
    }
    if (changes.rule)
        event.setRecurrenceRules({ { rule } });
    if (changes.endsRepeating)
        event.setRecurrenceRules({});
    if (changes.calendar)
        event.setCalendar(calendarRef(*changes.calendar));
}

/// What comes back from saving is the event as it is then.
void OperationRun::takeResult(const EKEvent &result, const Place &place)
{
    Series &series = m_model.all[place.series];
    if (series.uid.isEmpty()) {
        series.uid = result.calendarItemExternalIdentifier();
        require(!series.uid.isEmpty(), "a new event without a UID");
    }
    const Says says = series.at(place.original);
    require(result.calendarItemExternalIdentifier() == series.uid && !result.changes()
            && result.calendar()->calendarIdentifier == series.calendar && result.startDate() == says.when.shownStart()
            && result.endDate() == says.when.shownEnd() && result.title().value_or(QString()) == says.title
            && result.location().value_or(QString()) == says.location,
        "another event comes back from saving");
}

} // namespace

void checkOperations(const QByteArray &bytes)
{
    OperationRun(bytes).run();
}

} // namespace mintaro
