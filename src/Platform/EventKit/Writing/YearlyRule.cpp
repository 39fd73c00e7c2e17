#include "Platform/EventKit/Writing/YearlyRule.h"

#include <algorithm>
#include <array>

namespace mintaro {

using namespace std::chrono;

namespace {

int numberOf(day each)
{
    return static_cast<int>(unsigned { each });
}

/// A day as a rule may choose it.
struct Place
{
    explicit Place(local_days each)
        : civil(each)
        , weekday(each)
        , monthDay(numberOf(civil.day()))
        , week((monthDay - 1) / 7 + 1)
        , isInLastWeek(year_month_day { each + days { 7 } }.month() != civil.month())
        , yearDay(static_cast<int>((each - local_days { (civil.year() + years { 1 }) / January / 1 }).count()))
    {
    }

    year_month_day civil;
    std::chrono::weekday weekday;
    int monthDay;
    int week;
    bool isInLastWeek;
    /// From the year's end, since February is of no account there: -1 is its last day.
    int yearDay;
};

QByteArray nameOf(weekday day)
{
    static constexpr std::array<const char *, 7> kNames { "SU", "MO", "TU", "WE", "TH", "FR", "SA" };
    return kNames[day.c_encoding()];
}

/// The seven days, by their numbers, that hold all of `places` and begin at the latest with `latest`; among them each
/// weekday comes once.
template <typename Number>
std::optional<QByteArray> weekOf(const std::vector<Place> &places, int latest, Number number)
{
    const auto [least, greatest] = std::minmax_element(
        places.begin(), places.end(), [&](const auto &a, const auto &b) { return number(a) < number(b); });
    const int begin = std::min(number(*least), latest);
    if (number(*greatest) > begin + 6)
        return std::nullopt;
    QByteArray list = QByteArray::number(begin);
    for (int each = begin + 1; each <= begin + 6; ++each)
        list += ',' + QByteArray::number(each);
    return list;
}

std::optional<QByteArray> weekdayInMonth(const std::vector<Place> &places)
{
    const Place &first = places.front();
    const QByteArray name = nameOf(first.weekday);
    if (std::all_of(places.begin(), places.end(), [](const Place &each) { return each.isInLastWeek; }))
        return "BYDAY=-1" + name;
    if (std::all_of(places.begin(), places.end(), [&](const Place &each) { return each.week == first.week; }))
        return "BYDAY=" + QByteArray::number(first.week) + name;
    // February's last week is that of most years.
    const int lastDay = numberOf((year { 2001 } / first.civil.month() / last).day());
    const auto week = weekOf(places, lastDay - 6, [](const Place &each) { return each.monthDay; });
    return week ? std::optional("BYMONTHDAY=" + *week + ";BYDAY=" + name) : std::nullopt;
}

} // namespace

std::optional<QByteArray> yearlyRule(const std::vector<local_days> &days)
{
    if (days.empty())
        return std::nullopt;
    const std::vector<Place> places(days.begin(), days.end());
    const auto isShared = [&places](auto part) {
        return std::all_of(
            places.begin(), places.end(), [&](const Place &each) { return part(each) == part(places.front()); });
    };
    const bool hasWeekday = isShared([](const Place &each) { return each.weekday; });
    if (isShared([](const Place &each) { return each.civil.month(); })) {
        const auto month = "BYMONTH=" + QByteArray::number(unsigned { places.front().civil.month() }) + ';';
        if (const auto weekday = hasWeekday ? weekdayInMonth(places) : std::nullopt)
            return month + *weekday;
        if (isShared([](const Place &each) { return each.monthDay; }))
            return month + "BYMONTHDAY=" + QByteArray::number(places.front().monthDay);
    }
    // The night after the last Thursday of October may be one of November.
    const auto week = hasWeekday ? weekOf(places, -7, [](const Place &each) { return each.yearDay; }) : std::nullopt;
    return week ? std::optional("BYYEARDAY=" + *week + ";BYDAY=" + nameOf(places.front().weekday)) : std::nullopt;
}

} // namespace mintaro
