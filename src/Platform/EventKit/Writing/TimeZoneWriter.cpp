#include "Platform/EventKit/Writing/TimeZoneWriter.h"

#include "Platform/EventKit/Writing/YearlyRule.h"

#include <QByteArrayList>

#include <algorithm>
#include <iterator>
#include <optional>
#include <vector>

namespace mintaro {

using namespace std::chrono;

namespace {

using Observance = TimeZone::Observance;

constexpr sys_seconds kEarliestFrom = sys_days { year { 1900 } / January / 1 };
constexpr sys_seconds kLatestFrom = sys_days { year { 2100 } / January / 1 };
/// Where a rule that is older begins, as in what other programs write.
constexpr LocalTime kUsualBegin = local_days { year { 1970 } / January / 1 };
constexpr year kLeastHorizon { 2040 };
constexpr years kListed { 20 };
/// Fewer are shorter as a list, and may follow a rule by chance.
constexpr std::size_t kLeastForRule = 3;

/// What becomes one STANDARD or DAYLIGHT: observances that are alike, the latest first.
struct Series
{
    std::vector<Observance> observances;
    /// Of an RRULE; empty where the onsets are listed.
    QByteArray rule;

    [[nodiscard]] const Observance &first() const { return observances.back(); }
    [[nodiscard]] const Observance &last() const { return observances.front(); }
};

local_days dayOf(const Observance &each)
{
    return floor<days>(each.readingBefore());
}

year yearOf(const Observance &each)
{
    return year_month_day { dayOf(each) }.year();
}

bool areAlike(const Observance &a, const Observance &b)
{
    return a.offsetBefore == b.offsetBefore && a.offset == b.offset && a.isDaylight == b.isDaylight
        && a.abbreviation == b.abbreviation;
}

std::optional<QByteArray> ruleOf(const std::vector<Observance> &observances)
{
    std::vector<local_days> days;
    for (const Observance &each : observances)
        days.push_back(dayOf(each));
    return yearlyRule(days);
}

/// Whether `each` is the onset of a year earlier than the series has, by the same rule.
bool continues(const Series &series, const Observance &each)
{
    const auto timeOfDay = [](const Observance &any) { return any.readingBefore() - dayOf(any); };
    if (!areAlike(series.first(), each) || timeOfDay(series.first()) != timeOfDay(each)
        || yearOf(series.first()) != yearOf(each) + years { 1 })
        return false;
    std::vector<Observance> longer = series.observances;
    longer.push_back(each);
    return ruleOf(longer).has_value();
}

/// Takes the last of `rest` out of it, and with it those from `begin` on that led to it by a rule, if they are enough.
Series takeSeries(std::vector<Observance> &rest, sys_seconds begin)
{
    Series series { { rest.back() }, {} };
    rest.pop_back();
    std::vector<Observance> others;
    for (auto each = rest.rbegin(); each != rest.rend(); ++each)
        (each->onset >= begin && continues(series, *each) ? series.observances : others).push_back(*each);
    if (series.observances.size() < kLeastForRule)
        return { { series.last() }, {} };
    series.rule = ruleOf(series.observances).value_or(QByteArray());
    rest.assign(others.rbegin(), others.rend());
    return series;
}

sys_seconds onsetOfHolding(const std::vector<Observance> &observances, sys_seconds at)
{
    const auto isAfter = [at](const Observance &each) { return each.onset > at; };
    return std::prev(std::find_if(std::next(observances.begin()), observances.end(), isAfter))->onset;
}

/// What of `observances`, which ascend, tells the offset from `from` on, in the order of beginning. A rule that goes on
/// is followed back to its own beginning, so that it reads the same for all events of its time.
std::vector<Series> seriesOf(std::vector<Observance> observances, sys_seconds from, year horizon)
{
    const sys_seconds needed = onsetOfHolding(observances, from);
    const sys_seconds all = observances.front().onset;
    std::vector<Series> result;
    while (!observances.empty() && observances.back().onset >= needed) {
        Series series = takeSeries(observances, yearOf(observances.back()) == horizon ? all : needed);
        const auto sameList = std::find_if(result.begin(), result.end(), [&](const Series &each) {
            return each.rule.isEmpty() && series.rule.isEmpty() && areAlike(each.first(), series.first());
        });
        if (sameList == result.end())
            result.push_back(std::move(series));
        else
            sameList->observances.push_back(series.first());
    }
    std::sort(result.begin(), result.end(),
        [](const Series &a, const Series &b) { return a.first().onset < b.first().onset; });
    return result;
}

QByteArray timeText(LocalTime reading)
{
    const auto day = floor<days>(reading);
    const year_month_day civil { day };
    const hh_mm_ss time { reading - day };
    return QString::asprintf("%04d%02u%02uT%02d%02d%02d", static_cast<int>(civil.year()), unsigned { civil.month() },
        unsigned { civil.day() }, static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
        static_cast<int>(time.seconds().count()))
        .toLatin1();
}

QByteArray offsetText(seconds offset)
{
    const hh_mm_ss time { abs(offset) };
    const auto text = QString::asprintf("%c%02d%02d", offset < seconds { 0 } ? '-' : '+',
        static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()));
    const int rest = static_cast<int>(time.seconds().count());
    return (rest == 0 ? text : text + QString::asprintf("%02d", rest)).toLatin1();
}

/// The line that says when the series goes on, if it does; one that still holds in the year of the horizon has no end.
QByteArray recurrenceLine(const Series &series, year horizon)
{
    if (!series.rule.isEmpty()) {
        const bool isOngoing = yearOf(series.last()) == horizon;
        const LocalTime end { series.last().onset.time_since_epoch() };
        return "RRULE:FREQ=YEARLY;" + series.rule + (isOngoing ? QByteArray() : ";UNTIL=" + timeText(end) + 'Z')
            + "\r\n";
    }
    QByteArrayList others;
    for (auto each = std::next(series.observances.rbegin()); each != series.observances.rend(); ++each)
        others.append(timeText(each->readingBefore()));
    return others.isEmpty() ? QByteArray() : "RDATE:" + others.join(',') + "\r\n";
}

QByteArray componentOf(const Series &series, year horizon)
{
    const Observance &first = series.first();
    const QByteArray name = first.isDaylight ? "DAYLIGHT" : "STANDARD";
    return "BEGIN:" + name + "\r\nTZOFFSETFROM:" + offsetText(first.offsetBefore)
        + "\r\nTZOFFSETTO:" + offsetText(first.offset) + "\r\nTZNAME:" + first.abbreviation.toUtf8() + "\r\nDTSTART:"
        + timeText(first.readingBefore()) + "\r\n" + recurrenceLine(series, horizon) + "END:" + name + "\r\n";
}

} // namespace

QByteArray timeZoneComponent(const TimeZone &zone, sys_seconds from)
{
    from = std::clamp(from, kEarliestFrom, kLatestFrom);
    const LocalTime firstDay = floor<days>(zone.toLocal(from));
    const year horizon = std::max(year_month_day { floor<days>(from) }.year() + kListed, kLeastHorizon);
    const auto observances = zone.observances(zone.toInstant(std::min(kUsualBegin, firstDay)),
        zone.toInstant(local_days { (horizon + years { 1 }) / January / 1 }));
    if (observances.empty())
        return {};
    QByteArray result = "BEGIN:VTIMEZONE\r\nTZID:" + zone.identifier().toUtf8() + "\r\n";
    for (const Series &series : seriesOf(observances, from, horizon))
        result += componentOf(series, horizon);
    return result + "END:VTIMEZONE\r\n";
}

} // namespace mintaro
