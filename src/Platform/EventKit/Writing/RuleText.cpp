#include "Platform/EventKit/Writing/RuleText.h"

#include "Platform/EventKit/RecurrenceRule.h"
#include "Platform/EventKit/VCalendarRule.h"

#include <QByteArrayList>

#include <algorithm>
#include <array>

namespace mintaro {

using namespace std::chrono;

namespace {

constexpr std::array<const char *, 7> kWeekdays { "SU", "MO", "TU", "WE", "TH", "FR", "SA" };

class RuleParts
{
public:
    explicit RuleParts(const QByteArray &rule)
        : m_parts((rule.contains('=') ? rule : modernRule(rule).value_or(rule)).split(';'))
    {
    }

    void remove(const char *name)
    {
        m_parts.removeIf([name](const QByteArray &part) { return nameOf(part) == name; });
    }
    /// In the place of the part of this name, or at the end.
    void set(const char *name, const QByteArray &value)
    {
        const auto isSame = [name](const QByteArray &part) { return nameOf(part) == name; };
        const QByteArray part = QByteArray(name) + '=' + value;
        const auto found = std::find_if(m_parts.begin(), m_parts.end(), isSame);
        if (found != m_parts.end())
            *found = part;
        else
            m_parts.append(part);
    }
    [[nodiscard]] QByteArray text() const { return m_parts.join(';'); }

private:
    static QByteArray nameOf(const QByteArray &part) { return part.left(part.indexOf('=')).trimmed().toUpper(); }

    QByteArrayList m_parts;
};

QByteArray nameOf(weekday day)
{
    return kWeekdays[day.c_encoding()];
}

/// Which one of its kind in its month the day is, counted from the end where `fromEnd`.
int ordinalOf(year_month_day day, bool fromEnd)
{
    const year_month_day_last last { day.year(), month_day_last { day.month() } };
    const unsigned before = fromEnd ? static_cast<unsigned>(last.day()) - static_cast<unsigned>(day.day())
                                    : static_cast<unsigned>(day.day()) - 1;
    const int ordinal = static_cast<int>(before / 7) + 1;
    return fromEnd ? -ordinal : ordinal;
}

void turnWeekdays(const RecurrenceRule &rule, days by, RuleParts &parts)
{
    QByteArrayList turned;
    for (const auto &each : rule.byDay)
        turned.append(nameOf(each.day + by));
    parts.set("BYDAY", turned.join(','));
    // The weeks that an interval counts turn with their days.
    if (rule.interval > 1)
        parts.set("WKST", nameOf(rule.weekStart + by));
}

void moveDay(const RecurrenceRule &rule, year_month_day from, year_month_day to, RuleParts &parts)
{
    using Frequency = RecurrenceRule::Frequency;
    const bool isPlain = std::all_of(rule.byDay.begin(), rule.byDay.end(), [](auto each) { return each.ordinal == 0; });
    if (rule.frequency <= Frequency::Weekly) {
        if (!rule.byDay.empty() && isPlain)
            turnWeekdays(rule, local_days { to } - local_days { from }, parts);
        return;
    }
    if (rule.byMonthDay == std::vector<int> { static_cast<int>(static_cast<unsigned>(from.day())) })
        parts.set("BYMONTHDAY", QByteArray::number(static_cast<unsigned>(to.day())));
    if (rule.byMonth == std::vector<int> { static_cast<int>(static_cast<unsigned>(from.month())) })
        parts.set("BYMONTH", QByteArray::number(static_cast<unsigned>(to.month())));
    if (rule.byDay.size() == 1 && !isPlain && rule.byDay.front().day == weekday { local_days { from } }) {
        const int ordinal = ordinalOf(to, rule.byDay.front().ordinal < 0);
        parts.set("BYDAY", QByteArray::number(ordinal) + nameOf(weekday { local_days { to } }));
    }
}

} // namespace

QByteArray ruleEndingAt(const QByteArray &rule, const QByteArray &until)
{
    RuleParts parts(rule);
    parts.remove("COUNT");
    parts.set("UNTIL", until);
    return parts.text();
}

QByteArray ruleEndingAfter(const QByteArray &rule, int count)
{
    RuleParts parts(rule);
    parts.remove("UNTIL");
    parts.set("COUNT", QByteArray::number(count));
    return parts.text();
}

QByteArray ruleMoved(const QByteArray &rule, LocalTime from, LocalTime to)
{
    const auto read = RecurrenceRule::parse(rule);
    if (!read)
        return rule;
    RuleParts parts(rule);
    const local_days fromDay = floor<days>(from);
    const local_days toDay = floor<days>(to);
    if (fromDay != toDay)
        moveDay(*read, year_month_day { fromDay }, year_month_day { toDay }, parts);
    const hh_mm_ss fromTime { from - fromDay };
    const hh_mm_ss toTime { to - toDay };
    const auto move = [&parts](const char *name, const std::vector<int> &list, auto before, auto after) {
        if (list == std::vector<int> { static_cast<int>(before.count()) })
            parts.set(name, QByteArray::number(static_cast<qlonglong>(after.count())));
    };
    move("BYHOUR", read->byHour, fromTime.hours(), toTime.hours());
    move("BYMINUTE", read->byMinute, fromTime.minutes(), toTime.minutes());
    move("BYSECOND", read->bySecond, fromTime.seconds(), toTime.seconds());
    return parts.text();
}

} // namespace mintaro
