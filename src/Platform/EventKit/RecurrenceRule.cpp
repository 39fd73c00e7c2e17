#include "Platform/EventKit/RecurrenceRule.h"

#include "Platform/EventKit/ICalValue.h"
#include "Platform/EventKit/VCalendarRule.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string_view>

namespace mintaro {

namespace {

using namespace std::chrono;

struct NumberPart
{
    std::string_view name;
    std::vector<int> RecurrenceRule::*list;
    int lowest;
    int highest;
    bool mayCountFromEnd;
};

constexpr std::array<NumberPart, 8> kNumberParts { {
    { "BYSECOND", &RecurrenceRule::bySecond, 0, 60, false },
    { "BYMINUTE", &RecurrenceRule::byMinute, 0, 59, false },
    { "BYHOUR", &RecurrenceRule::byHour, 0, 23, false },
    { "BYMONTHDAY", &RecurrenceRule::byMonthDay, 1, 31, true },
    { "BYYEARDAY", &RecurrenceRule::byYearDay, 1, 366, true },
    { "BYWEEKNO", &RecurrenceRule::byWeekNumber, 1, 53, true },
    { "BYMONTH", &RecurrenceRule::byMonth, 1, 12, false },
    { "BYSETPOS", &RecurrenceRule::bySetPosition, 1, 366, true },
} };

constexpr std::array<std::string_view, 7> kFrequencies { "SECONDLY", "MINUTELY", "HOURLY", "DAILY", "WEEKLY", "MONTHLY",
    "YEARLY" };
constexpr std::array<std::string_view, 7> kWeekdays { "SU", "MO", "TU", "WE", "TH", "FR", "SA" };

std::string_view view(const QByteArray &bytes)
{
    return { bytes.constData(), static_cast<std::size_t>(bytes.size()) };
}

template <std::size_t size>
std::optional<unsigned> indexOf(const std::array<std::string_view, size> &names, const QByteArray &name)
{
    for (unsigned i = 0; i < size; ++i) {
        if (names[i] == view(name))
            return i;
    }
    return std::nullopt;
}

bool parseNumbers(const QByteArray &value, const NumberPart &part, std::vector<int> &list)
{
    for (const QByteArray &each : value.split(',')) {
        bool ok = false;
        const int number = each.toInt(&ok);
        const int magnitude = part.mayCountFromEnd ? std::abs(number) : number;
        if (!ok || magnitude < part.lowest || magnitude > part.highest)
            return false;
        list.push_back(number);
    }
    return true;
}

bool parseDays(const QByteArray &value, std::vector<RecurrenceRule::WeekdayNumber> &list)
{
    for (const QByteArray &each : value.split(',')) {
        const auto day = indexOf(kWeekdays, each.right(2));
        const QByteArray ordinal = each.chopped(std::min<qsizetype>(2, each.size()));
        bool ok = true;
        const int number = ordinal.isEmpty() ? 0 : ordinal.toInt(&ok);
        if (!day || !ok || std::abs(number) > 53)
            return false;
        list.push_back({ weekday { *day }, number });
    }
    return true;
}

bool parsePositive(const QByteArray &value, int &number)
{
    bool ok = false;
    number = value.toInt(&ok);
    return ok && number > 0;
}

bool parseUntil(const QByteArray &value, std::optional<RecurrenceRule::Until> &until)
{
    const auto time = parseTime(value);
    if (time)
        until = { time->reading, time->isUtc };
    return time.has_value();
}

/// False where the part makes the rule meaningless.
bool parsePart(RecurrenceRule &rule, const QByteArray &name, const QByteArray &value)
{
    if (name == "INTERVAL")
        return parsePositive(value, rule.interval);
    if (name == "COUNT")
        return parsePositive(value, rule.count.emplace());
    if (name == "UNTIL")
        return parseUntil(value, rule.until);
    if (name == "BYDAY")
        return parseDays(value, rule.byDay);
    if (name == "WKST") {
        const auto day = indexOf(kWeekdays, value);
        rule.weekStart = weekday { day.value_or(1) };
        return day.has_value();
    }
    for (const auto &part : kNumberParts) {
        if (part.name == view(name))
            return parseNumbers(value, part, rule.*part.list);
    }
    return true;
}

} // namespace

std::optional<RecurrenceRule> RecurrenceRule::parse(const QByteArray &value)
{
    if (!value.contains('=')) {
        const auto modern = modernRule(value);
        return modern ? parse(*modern) : std::nullopt;
    }
    RecurrenceRule rule;
    bool hasFrequency = false;
    for (const QByteArray &part : value.toUpper().replace(' ', QByteArray()).split(';')) {
        const qsizetype equals = part.indexOf('=');
        const QByteArray name = part.left(equals);
        const QByteArray text = part.mid(equals + 1);
        if (name == "FREQ") {
            const auto index = indexOf(kFrequencies, text);
            hasFrequency = index.has_value();
            rule.frequency = static_cast<Frequency>(index.value_or(0));
        } else if (equals > 0 && !parsePart(rule, name, text)) {
            return std::nullopt;
        }
    }
    // RFC 5545 3.3.12: where there are no leap seconds, the second 60 is the second 59.
    std::replace(rule.bySecond.begin(), rule.bySecond.end(), 60, 59);
    for (const NumberPart &part : kNumberParts) {
        std::vector<int> &list = rule.*part.list;
        std::sort(list.begin(), list.end());
        list.erase(std::unique(list.begin(), list.end()), list.end());
    }
    return hasFrequency ? std::optional(rule) : std::nullopt;
}

} // namespace mintaro
