#include "Platform/EventKit/RuleIterator.h"

#include <algorithm>

namespace mintaro {

using namespace std::chrono;
using Frequency = RecurrenceRule::Frequency;

namespace {

/// Years have four digits (RFC 5545 3.3.4), however long the event that a reading is looked for.
constexpr LocalTime kEnd = local_days { year { 10'000 } / January / 1 };

seconds unitOf(Frequency frequency)
{
    switch (frequency) {
    case Frequency::Secondly:
        return seconds { 1 };
    case Frequency::Minutely:
        return minutes { 1 };
    case Frequency::Hourly:
        return hours { 1 };
    default:
        return days { 1 };
    }
}

bool allows(const std::vector<int> &list, std::int64_t value)
{
    return list.empty() || std::find(list.begin(), list.end(), value) != list.end();
}

/// Every sum of one of `base` and one of `parts` times `unit`, ascending as these are; `fallback` alone where there are
/// no parts.
std::vector<seconds> expand(
    const std::vector<seconds> &base, const std::vector<int> &parts, std::int64_t fallback, seconds unit)
{
    std::vector<seconds> result;
    for (const seconds each : base) {
        if (parts.empty())
            result.push_back(each + fallback * unit);
        for (const int part : parts)
            result.push_back(each + part * unit);
    }
    return result;
}

int monthIndex(local_days day)
{
    const year_month_day civil { day };
    return static_cast<int>(civil.year()) * 12 + static_cast<int>(static_cast<unsigned>(civil.month())) - 1;
}

local_days monthStart(std::int64_t index)
{
    // A long interval leaves what chrono's years can hold; that is far behind the last day.
    const auto y = static_cast<int>(std::min<std::int64_t>(index / 12, 20'000));
    return local_days { year { y } / month { static_cast<unsigned>(index % 12) + 1 } / 1 };
}

} // namespace

RuleIterator::RuleIterator(const RecurrenceRule &rule, LocalTime start, LocalTime limit, ExpansionBudget &budget)
    : m_rule(rule)
    , m_budget(budget)
    , m_filter(rule, floor<days>(start))
    , m_start(start)
    , m_startDay(floor<days>(start))
    , m_limit(std::min(limit, kEnd))
    , m_offsets(makeOffsets())
    , m_period(-1)
{
    m_budget.steps -= static_cast<std::int64_t>(m_offsets.size());
}

std::vector<seconds> RuleIterator::makeOffsets() const
{
    const hh_mm_ss time { m_start - m_startDay };
    std::vector<seconds> offsets { seconds { 0 } };
    if (m_rule.frequency >= Frequency::Daily)
        offsets = expand(offsets, m_rule.byHour, time.hours().count(), hours { 1 });
    if (m_rule.frequency >= Frequency::Hourly)
        offsets = expand(offsets, m_rule.byMinute, time.minutes().count(), minutes { 1 });
    if (m_rule.frequency >= Frequency::Minutely)
        offsets = expand(offsets, m_rule.bySecond, time.seconds().count(), seconds { 1 });
    if (isSubDaily() && !m_rule.bySetPosition.empty()) {
        // Each hour or minute is a period of its own, and all have the same readings.
        std::vector<seconds> selected;
        for (const std::size_t position : selectPositions(offsets.size()))
            selected.push_back(offsets[position]);
        return selected;
    }
    return offsets;
}

std::vector<std::size_t> RuleIterator::selectPositions(std::size_t count) const
{
    std::vector<std::size_t> positions;
    for (const int each : m_rule.bySetPosition) {
        const std::int64_t place = each > 0 ? each - 1 : static_cast<std::int64_t>(count) + each;
        if (place >= 0 && place < static_cast<std::int64_t>(count))
            positions.push_back(static_cast<std::size_t>(place));
    }
    std::sort(positions.begin(), positions.end());
    positions.erase(std::unique(positions.begin(), positions.end()), positions.end());
    return positions;
}

RuleIterator::Span RuleIterator::span(std::int64_t period) const
{
    const std::int64_t step = period * m_rule.interval;
    switch (m_rule.frequency) {
    case Frequency::Yearly: {
        const std::int64_t first = (monthIndex(m_startDay) / 12 + step) * 12;
        return { monthStart(first), monthStart(first + 12) };
    }
    case Frequency::Monthly: {
        const std::int64_t index = monthIndex(m_startDay) + step;
        return { monthStart(index), monthStart(index + 1) };
    }
    case Frequency::Weekly: {
        const local_days begin = m_startDay - (weekday { m_startDay } - m_rule.weekStart) + weeks { step };
        // The first week begins with the start, also for BYSETPOS: so the other calendars that count places in weeks.
        return { std::max(begin, m_startDay), begin + weeks { 1 } };
    }
    default: {
        const local_days day = m_startDay + days { isSubDaily() ? period : step };
        return { day, day + days { 1 } };
    }
    }
}

std::int64_t RuleIterator::periodOf(local_days day) const
{
    switch (m_rule.frequency) {
    case Frequency::Yearly:
        return (monthIndex(day) / 12 - monthIndex(m_startDay) / 12) / m_rule.interval;
    case Frequency::Monthly:
        return (monthIndex(day) - monthIndex(m_startDay)) / m_rule.interval;
    case Frequency::Weekly:
        return (day - m_startDay).count() / 7 / m_rule.interval;
    case Frequency::Daily:
        return (day - m_startDay).count() / m_rule.interval;
    default:
        return (day - m_startDay).count();
    }
}

void RuleIterator::skipTo(LocalTime from)
{
    // One period of slack: m_period is the one before the next.
    if (!m_rule.count && from > m_start)
        m_period = std::max(m_period, periodOf(floor<days>(from)) - 2);
}

/// The unit of the clock whose list leaves a reading out; zero where all lists take it.
seconds RuleIterator::refusingUnit(seconds timeOfDay) const
{
    const hh_mm_ss time { timeOfDay };
    if (!allows(m_rule.byHour, time.hours().count()))
        return hours { 1 };
    if (m_rule.frequency <= Frequency::Minutely && !allows(m_rule.byMinute, time.minutes().count()))
        return minutes { 1 };
    if (m_rule.frequency == Frequency::Secondly && !allows(m_rule.bySecond, time.seconds().count()))
        return seconds { 1 };
    return seconds { 0 };
}

void RuleIterator::addUnits(local_days day)
{
    const seconds unit = unitOf(m_rule.frequency);
    const seconds step = unit * m_rule.interval;
    const LocalTime first = m_start - (m_start - m_startDay) % unit;
    const seconds behind = LocalTime { day } - first;
    const seconds ahead = behind.count() <= 0 ? -behind : (step - behind % step) % step;
    for (seconds time = ahead; time < days { 1 } && m_budget.spend();) {
        const seconds refused = refusingUnit(time);
        if (refused.count() == 0)
            m_bases.push_back(LocalTime { day } + time);
        // What is left of a refused hour or minute is passed over at once.
        const seconds distance = refused.count() == 0 ? step : refused - time % refused;
        time += (distance + step - seconds { 1 }) / step * step;
    }
}

void RuleIterator::addDay(local_days day)
{
    if (isSubDaily())
        addUnits(day);
    else
        m_bases.push_back(day);
}

bool RuleIterator::advance()
{
    const Span current = span(++m_period);
    if (LocalTime { current.begin } > m_limit)
        return false;
    m_bases.clear();
    m_index = 0;
    for (local_days day = current.begin; day < current.end; day += days { 1 }) {
        if (!m_budget.spend())
            return false;
        const year_month_day civil { day };
        if (!m_filter.takesMonth(civil.month()))
            day = local_days { civil.year() / civil.month() / last };
        else if (m_filter.matches(day, civil))
            addDay(day);
    }
    m_size = m_bases.size() * m_offsets.size();
    if (!isSubDaily() && !m_rule.bySetPosition.empty()) {
        m_positions = selectPositions(m_size);
        m_size = m_positions.size();
    }
    return true;
}

LocalTime RuleIterator::element(std::size_t index) const
{
    const std::size_t place = m_positions.empty() ? index : m_positions[index];
    return m_bases[place / m_offsets.size()] + m_offsets[place % m_offsets.size()];
}

std::optional<LocalTime> RuleIterator::next()
{
    if (m_rule.count && m_returned >= *m_rule.count)
        return std::nullopt;
    for (;;) {
        while (m_index >= m_size) {
            if (!advance())
                return std::nullopt;
        }
        const LocalTime reading = element(m_index++);
        if (reading > m_limit || !m_budget.spend())
            return std::nullopt;
        if (reading >= m_start) {
            ++m_returned;
            return reading;
        }
    }
}

} // namespace mintaro
