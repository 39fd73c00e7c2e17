#include "CalendarModel.h"

#include <QByteArrayList>

#include <algorithm>
#include <array>
#include <iterator>

namespace mintaro::model {

using namespace std::chrono;

namespace {

TimeZone zoneNamed(const char *name)
{
    return TimeZone::named(QLatin1String(name)).value();
}

local_days dayOf(LocalTime reading)
{
    return floor<days>(reading);
}

seconds clockOf(LocalTime reading)
{
    return reading - dayOf(reading);
}

void setTexts(Says &says, const Changes &changes)
{
    says.title = changes.title.value_or(says.title);
    says.location = changes.location.value_or(says.location);
    says.notes = changes.notes.value_or(says.notes);
    says.alarms = changes.alarms.value_or(says.alarms);
}

/// What said the same as its series goes on saying the same.
void followTexts(Says &says, const Says &before, const Says &now)
{
    if (says.title == before.title)
        says.title = now.title;
    if (says.location == before.location)
        says.location = now.location;
    if (says.notes == before.notes)
        says.notes = now.notes;
    if (says.alarms == before.alarms)
        says.alarms = now.alarms;
}

/// All that is at or after `from` goes over.
template <typename Set>
Set cut(Set &set, LocalTime from)
{
    const auto at = set.lower_bound(from);
    Set rest(at, set.end());
    set.erase(at, set.end());
    return rest;
}

std::set<LocalTime> movedAll(const std::set<LocalTime> &starts, Form form, LocalTime from, const When &to)
{
    std::set<LocalTime> result;
    for (const LocalTime start : starts)
        result.insert(moved(start, form, from, to));
    return result;
}

void moveSeries(Series &series, LocalTime original, const When &to)
{
    const Form form = series.base.when.form;
    std::map<LocalTime, Says> own;
    for (auto &[start, says] : series.own) {
        const bool isTarget = start == original;
        const LocalTime movedStart = moved(start, form, original, to);
        const bool stood = says.when.form == form && says.when.start == start;
        const bool follows = says.when.length == series.base.when.length || form != to.form;
        // One that has a time of its own keeps all of it, its length too.
        if (isTarget)
            says.when = to;
        else if (stood)
            says.when = { to.form, movedStart, follows ? to.length : says.when.length };
        own.emplace(movedStart, says);
    }
    series.own = std::move(own);
    series.starts = movedAll(series.starts, form, original, to);
    series.excluded = movedAll(series.excluded, form, original, to);
    series.added = movedAll(series.added, form, original, to);
    series.base.when = { to.form, *series.starts.begin(), to.length };
}

void changeAll(Series &series, LocalTime original, const Changes &changes)
{
    const Says seen = series.at(original);
    const When to = changedWhen(seen.when, changes, false);
    if (changes.calendar)
        series.calendar = *changes.calendar;
    if (changes.endsRepeating) {
        const Says alone = seen;
        series = { series.calendar, series.uid, alone, false, false, Grid::Days, { to.start }, {}, {}, {},
            series.calendarTags };
        series.base.when = to;
        setTexts(series.base, changes);
        return;
    }
    const Says before = series.base;
    setTexts(series.base, changes);
    for (auto &[start, says] : series.own) {
        if (start == original)
            setTexts(says, changes);
        else
            followTexts(says, before, series.base);
    }
    LocalTime first = original;
    if (!(to == seen.when)) {
        first = moved(original, before.when.form, original, to);
        moveSeries(series, original, to);
    }
    if (changes.rule)
        series.setRule(*changes.rule, first);
}

} // namespace

QByteArray dayText(LocalTime reading)
{
    const year_month_day date { dayOf(reading) };
    return QString::asprintf("%04d%02u%02u", static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
        static_cast<unsigned>(date.day()))
        .toLatin1();
}

QByteArray readingText(LocalTime reading)
{
    const hh_mm_ss clock { clockOf(reading) };
    return dayText(reading)
        + QString::asprintf("T%02d%02d%02d", static_cast<int>(clock.hours().count()),
            static_cast<int>(clock.minutes().count()), static_cast<int>(clock.seconds().count()))
              .toLatin1();
}

const TimeZone &rome()
{
    static const TimeZone zone = zoneNamed("Europe/Rome");
    return zone;
}

const TimeZone &zoneOf(Form form)
{
    static const TimeZone newYork = zoneNamed("America/New_York");
    static const TimeZone utc;
    return form == Form::Utc ? utc : form == Form::NewYork ? newYork : rome();
}

sys_seconds When::shownStart() const
{
    return zoneOf(form).toInstant(start);
}

sys_seconds When::shownEnd() const
{
    return form == Form::Day ? rome().toInstant(start + length) - seconds { 1 } : shownStart() + length;
}

std::set<LocalTime> Rule::starts(LocalTime first) const
{
    const local_days firstDay = dayOf(first);
    const year_month_day date { firstDay };
    const local_days firstWeek = firstDay - (weekday { firstDay } - Monday);
    std::set<LocalTime> result;
    for (local_days day = firstDay; count > 0 || day < kHorizon; day += days { 1 }) {
        const year_month_day each { day };
        const bool isWanted = weekdays.contains(weekday { day }.c_encoding());
        const auto months = (each.year() / each.month() - date.year() / date.month()).count();
        const bool isInMonth = months % interval == 0;
        bool fits = false;
        if (kind == Kind::Daily)
            fits = (day - firstDay).count() % interval == 0 && (weekdays.empty() || isWanted);
        else if (kind == Kind::Weekly)
            fits = floor<weeks>(day - firstWeek).count() % interval == 0
                && (weekdays.empty() ? weekday { day } == weekday { firstDay } : isWanted);
        else if (kind == Kind::MonthDay)
            fits = isInMonth && each.day() == date.day();
        else if (kind == Kind::LastMonthDay)
            fits = isInMonth && year_month_day { day + days { 1 } }.day() == std::chrono::day { 1 };
        else if (kind == Kind::MonthWeekday)
            fits = isInMonth && weekday { day } == weekday { firstDay }
                && (static_cast<unsigned>(each.day()) - 1) / 7 == (static_cast<unsigned>(date.day()) - 1) / 7;
        else
            fits = months % (12 * interval) == 0 && each.day() == date.day();
        const LocalTime reading = day + clockOf(first);
        if (until && reading > *until)
            break;
        if (fits)
            result.insert(reading);
        if (count > 0 && result.size() == static_cast<std::size_t>(count))
            break;
    }
    return result;
}

QByteArray Rule::text(Form form, LocalTime first) const
{
    static constexpr std::array<const char *, 7> kDays { "SU", "MO", "TU", "WE", "TH", "FR", "SA" };
    static constexpr std::array<const char *, 6> kNames { "DAILY", "WEEKLY", "MONTHLY", "MONTHLY", "MONTHLY",
        "YEARLY" };
    QByteArray text = QByteArray("FREQ=") + kNames[static_cast<std::size_t>(kind)];
    if (interval > 1)
        text += ";INTERVAL=" + QByteArray::number(interval);
    QByteArrayList names;
    for (const unsigned day : weekdays)
        names.append(kDays[day]);
    if (!names.isEmpty())
        text += ";BYDAY=" + names.join(',');
    const year_month_day date { dayOf(first) };
    if (kind == Kind::LastMonthDay)
        text += ";BYMONTHDAY=-1";
    if (kind == Kind::MonthWeekday)
        text += ";BYDAY=" + QByteArray::number((static_cast<unsigned>(date.day()) - 1) / 7 + 1)
            + kDays[weekday { dayOf(first) }.c_encoding()];
    if (count > 0)
        text += ";COUNT=" + QByteArray::number(count);
    if (until) {
        const LocalTime utc { zoneOf(form).toInstant(*until).time_since_epoch() };
        text += ";UNTIL=" + (form == Form::Day ? dayText(*until) : readingText(utc) + 'Z');
    }
    return text;
}

Grid gridOf(Rule::Kind kind)
{
    using Kind = Rule::Kind;
    if (kind == Kind::Daily || kind == Kind::Weekly)
        return Grid::Days;
    return kind == Kind::MonthDay || kind == Kind::Yearly ? Grid::MonthDay : Grid::Fixed;
}

std::vector<LocalTime> Series::live() const
{
    std::vector<LocalTime> result;
    std::set_difference(starts.begin(), starts.end(), excluded.begin(), excluded.end(), std::back_inserter(result));
    return result;
}

bool Series::isLive(LocalTime original) const
{
    return starts.contains(original) && !excluded.contains(original);
}

bool Series::isFirst(LocalTime original) const
{
    const auto all = live();
    return !all.empty() && all.front() == original;
}

Says Series::at(LocalTime original) const
{
    if (const auto found = own.find(original); found != own.end())
        return found->second;
    Says says = base;
    if (repeats)
        says.when.start = original;
    return says;
}

bool Series::hasOwnTime(LocalTime original) const
{
    return !(at(original).when == When { base.when.form, original, base.when.length });
}

void Series::setRule(const Rule &rule, LocalTime first)
{
    starts = rule.starts(first);
    added.clear();
    repeats = true;
    isEndless = rule.isEndless();
    grid = gridOf(rule.kind);
    std::erase_if(own, [this](const auto &each) { return !starts.contains(each.first); });
}

void Series::takeOut(LocalTime original)
{
    own.erase(original);
    excluded.insert(original);
}

Series Series::split(LocalTime from)
{
    Series rest = *this;
    rest.starts = cut(starts, from);
    rest.excluded = cut(excluded, from);
    rest.added = cut(added, from);
    rest.own = cut(own, from);
    rest.base.when.start = from;
    rest.calendarTags.clear();
    rest.uid.clear();
    isEndless = false;
    return rest;
}

When changedWhen(const When &when, const Changes &changes, bool isAlone)
{
    if (!changes.changesTime())
        return when;
    const sys_seconds start = changes.start.value_or(when.shownStart());
    const sys_seconds end = changes.end.value_or(when.shownEnd());
    const bool wasDay = when.form == Form::Day;
    const bool isDay = changes.allDay.value_or(wasDay);
    if (isDay) {
        const local_days first = dayOf(rome().toLocal(start));
        return { Form::Day, first, dayOf(rome().toLocal(end)) - first + days { 1 } };
    }
    When result { wasDay ? Form::Rome : when.form, when.start, end - start };
    if (changes.start || wasDay)
        result.start = zoneOf(result.form).toLocal(start);
    // Of the hour that a clock shows twice it can only say the first.
    const When said { Form::Utc, LocalTime { start.time_since_epoch() }, end - start };
    const auto isSaid = [&](sys_seconds moment) {
        const TimeZone &zone = zoneOf(result.form);
        return zone.toInstant(zone.toLocal(moment)) == moment;
    };
    return isAlone && !(isSaid(start) && isSaid(end)) ? said : result;
}

LocalTime moved(LocalTime start, Form form, LocalTime from, const When &to)
{
    if (form != Form::Day && to.form != Form::Day)
        return start + (to.start - from);
    const local_days day = dayOf(start) + (dayOf(to.start) - dayOf(from));
    return day + (form == Form::Day ? clockOf(to.start) : seconds { 0 });
}

bool isPlain(const Series &series, LocalTime original, const Changes &changes, EKSpan span)
{
    if (!series.repeats || span == EKSpan::ThisEvent)
        return true;
    const When seen = series.at(original).when;
    const When to = changedWhen(seen, changes, false);
    const bool isMoved = !(to == seen);
    // How far the others go when one goes on that had a time of its own, nobody can say.
    if (isMoved && series.hasOwnTime(original))
        return false;
    // A clock that shows an hour twice cannot say when the second one is.
    if (to.form != Form::Day && changes.start && to.shownStart() != *changes.start)
        return false;
    const days by = dayOf(to.start) - dayOf(original);
    const std::vector<LocalTime> live = series.live();
    for (const LocalTime each : live) {
        const unsigned day { year_month_day { dayOf(each) }.day() };
        const bool isMiddle = day >= 5 && day <= 23 && abs(by) <= days { 4 };
        if (by != days { 0 } && (series.grid == Grid::Fixed || (series.grid == Grid::MonthDay && !isMiddle)))
            return false;
        // Days of another zone are not the user's.
        const bool isSameDay = dayOf(rome().toLocal(zoneOf(seen.form).toInstant(each))) == dayOf(each);
        if (isMoved && to.form == Form::Day && seen.form != Form::Day && !isSameDay)
            return false;
    }
    if (isMoved && (to.form == Form::Day) != (seen.form == Form::Day)) {
        std::set<LocalTime> all = movedAll(series.starts, seen.form, original, to);
        if (all.size() != series.starts.size())
            return false;
    }
    // What is to become of dates that no rule gives, and from where a rule counts whose first date is gone, is open.
    return !changes.changesRules() || changes.endsRepeating
        || (series.added.empty() && (!series.isFirst(original) || *series.starts.begin() == original));
}

Place Calendars::change(const Place &place, const Changes &changes, EKSpan span)
{
    const bool isFuture = all[place.series].repeats && span == EKSpan::FutureEvents;
    Place result = isFuture ? changeFuture(place, changes) : changeOne(place, changes);
    dropGone();
    // Whatever was dropped stood before: what comes out is at the end, or where it was.
    result.series = std::min(result.series, all.size() - 1);
    return result;
}

Place Calendars::changeOne(const Place &place, const Changes &changes)
{
    Series &series = all[place.series];
    Says says = series.at(place.original);
    says.when = changedWhen(says.when, changes, true);
    setTexts(says, changes);
    if (!series.repeats) {
        series.base = says;
        series.starts = { says.when.start };
        series.calendar = changes.calendar.value_or(series.calendar);
        if (changes.rule)
            series.setRule(*changes.rule, says.when.start);
        return { place.series, says.when.start };
    }
    if (!changes.changesRules() && !changes.calendar) {
        series.own[place.original] = says;
        return place;
    }
    Series alone { changes.calendar.value_or(series.calendar), {}, says, false, false, Grid::Days, { says.when.start },
        {}, {}, {}, {} };
    if (changes.rule)
        alone.setRule(*changes.rule, says.when.start);
    series.takeOut(place.original);
    all.push_back(std::move(alone));
    return { all.size() - 1, says.when.start };
}

Place Calendars::changeFuture(const Place &place, const Changes &changes)
{
    const bool isWhole = all[place.series].isFirst(place.original);
    std::size_t at = place.series;
    if (!isWhole) {
        all.push_back(all[place.series].split(place.original));
        at = all.size() - 1;
    }
    Series &series = all[at];
    const When seen = series.at(place.original).when;
    const Form form = series.base.when.form;
    const When to = changedWhen(seen, changes, false);
    changeAll(series, place.original, changes);
    const bool isMoved = !(to == seen);
    if (!series.repeats)
        return { at, to.start };
    return { at, isMoved ? moved(place.original, form, place.original, to) : place.original };
}

void Calendars::remove(const Place &place, EKSpan span)
{
    Series &series = all[place.series];
    if (!series.repeats || (span == EKSpan::FutureEvents && series.isFirst(place.original))) {
        all.erase(all.begin() + static_cast<std::ptrdiff_t>(place.series));
        return;
    }
    if (span == EKSpan::FutureEvents)
        static_cast<void>(series.split(place.original));
    else
        series.takeOut(place.original);
    dropGone();
}

void Calendars::dropGone()
{
    std::erase_if(all, [](const Series &each) { return each.isGone(); });
}

} // namespace mintaro::model
