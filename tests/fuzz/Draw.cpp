#include "Draw.h"

#include <algorithm>
#include <array>

namespace mintaro::model {

using namespace std::chrono;

namespace {

constexpr days kDay { 1 };

Changes drawDayTimes(Choices &choices, const When &seen)
{
    const auto atDay = [](LocalTime reading) { return rome().toInstant(reading); };
    const days by { static_cast<int>(choices.below(9)) - 4 };
    const LocalTime last = seen.start + seen.length - kDay;
    Changes changes;
    switch (choices.below(4)) {
    case 0:
        changes.start = atDay(seen.start + by);
        changes.end = atDay(last + by + hours { 12 });
        break;
    case 1:
        changes.end = atDay(last + abs(by) + hours { 20 });
        break;
    case 2:
        changes.start = atDay(seen.start - abs(by));
        break;
    default:
        changes.allDay = false;
        if (choices.oneIn(4))
            break;
        changes.start = atDay(seen.start + hours { 10 });
        changes.end = *changes.start + minutes { 90 };
    }
    return changes;
}

Changes drawClockTimes(Choices &choices, const When &seen)
{
    static constexpr std::array<minutes, 8> kSteps { minutes { 60 }, minutes { -60 }, minutes { 30 }, kDay, -kDay,
        3 * kDay, kDay + hours { 1 }, minutes { -150 } };
    const sys_seconds start = seen.shownStart();
    const seconds length = seen.shownEnd() - start;
    Changes changes;
    switch (choices.below(4)) {
    case 0:
        changes.start = rome().toInstant(rome().toLocal(start) + choices.of(kSteps));
        changes.end = *changes.start + length;
        break;
    case 1:
        changes.end = seen.shownEnd() + abs(choices.of(kSteps));
        break;
    case 2:
        changes.start = choices.oneIn(2) ? start + length / 2 : start - hours { 1 };
        break;
    default:
        changes.allDay = true;
        if (choices.oneIn(3))
            changes.end = seen.shownEnd() + kDay;
    }
    return changes;
}

} // namespace

std::size_t Choices::below(std::size_t count)
{
    if (m_rest.isEmpty())
        return 0;
    const auto byte = static_cast<unsigned char>(m_rest.front());
    m_rest = m_rest.sliced(1);
    return byte % count;
}

QString drawText(Choices &choices)
{
    static const std::array<QString, 9> kTexts { QStringLiteral("Lunch"), QStringLiteral("Dentist"), QString(),
        QStringLiteral("A; b, c\\d: \"e\""), QStringLiteral("Caff\u00e8 \U0001F600 \u4f1a\u8b70").repeated(9),
        QStringLiteral("first line\nsecond\n\nBEGIN:VEVENT\n"), QStringLiteral(" blanks "),
        QStringLiteral("x").repeated(200), QStringLiteral("\\n\\,") };
    return choices.of(kTexts);
}

std::vector<seconds> drawAlarms(Choices &choices)
{
    std::vector<seconds> alarms;
    for (const seconds offset : { seconds { -86400 }, seconds { -3600 }, seconds { -600 }, seconds { 0 } }) {
        if (choices.oneIn(3))
            alarms.push_back(offset);
    }
    return alarms;
}

LocalTime drawReading(Choices &choices)
{
    static constexpr std::array<local_days, 5> kWeeks { local_days { year { 2026 } / 3 / 14 },
        local_days { year { 2026 } / 10 / 10 }, local_days { year { 2026 } / 5 / 4 },
        local_days { year { 2027 } / 3 / 15 }, local_days { year { 2026 } / 1 / 29 } };
    static constexpr std::array<minutes, 9> kClocks { minutes { 600 }, minutes { 1110 }, minutes { 0 }, minutes { 90 },
        minutes { 150 }, minutes { 180 }, minutes { 540 }, minutes { 855 }, minutes { 1410 } };
    const local_days week = choices.of(kWeeks);
    return week + days { static_cast<int>(choices.below(18)) } + choices.of(kClocks);
}

When drawWhen(Choices &choices, Form form)
{
    static constexpr std::array<minutes, 6> kLengths { minutes { 60 }, minutes { 30 }, minutes { 120 }, minutes { 90 },
        minutes { 0 }, minutes { 1560 } };
    const LocalTime reading = drawReading(choices);
    if (form == Form::Day)
        return { form, floor<days>(reading), days { static_cast<int>(choices.below(3)) + 1 } };
    return { form, reading, choices.of(kLengths) };
}

Rule drawRule(Choices &choices, Form form, LocalTime first)
{
    using Kind = Rule::Kind;
    static constexpr std::array<Kind, 8> kKinds { Kind::Daily, Kind::Weekly, Kind::Weekly, Kind::Daily, Kind::MonthDay,
        Kind::LastMonthDay, Kind::MonthWeekday, Kind::Yearly };
    Rule rule { choices.of(kKinds), static_cast<int>(choices.below(3)) + 1, {}, 0, {} };
    const local_days day = floor<days>(first);
    if (rule.kind == Kind::LastMonthDay && year_month_day { day + kDay }.day() != std::chrono::day { 1 })
        rule.kind = Kind::MonthDay;
    if ((rule.kind == Kind::Weekly || rule.kind == Kind::Daily) && choices.oneIn(2)) {
        rule.weekdays = { weekday { day }.c_encoding() };
        for (std::size_t i = choices.below(4); i > 0; --i)
            rule.weekdays.insert(static_cast<unsigned>(choices.below(7)));
    }
    switch (choices.below(3)) {
    case 0:
        rule.count = static_cast<int>(choices.below(8)) + 1;
        break;
    case 1:
        rule.until = first + days { static_cast<int>(choices.below(90)) };
        if (form != Form::Day && choices.oneIn(2))
            *rule.until += hours { 1 };
        break;
    default:
        break;
    }
    return rule;
}

Changes drawChanges(Choices &choices, const When &seen)
{
    Changes changes;
    if (choices.oneIn(2))
        changes = seen.form == Form::Day ? drawDayTimes(choices, seen) : drawClockTimes(choices, seen);
    if (choices.oneIn(2))
        changes.title = drawText(choices);
    if (choices.oneIn(4))
        changes.location = drawText(choices);
    if (choices.oneIn(4))
        changes.notes = drawText(choices);
    if (choices.oneIn(4))
        changes.alarms = drawAlarms(choices);
    return changes;
}

NewEvent drawEvent(Choices &choices, const QString &calendar, const QString &uid)
{
    static constexpr std::array<Form, 5> kForms { Form::Rome, Form::Rome, Form::Day, Form::Utc, Form::NewYork };
    const Form form = choices.of(kForms);
    const Says base { drawWhen(choices, form), drawText(choices), drawText(choices), drawText(choices),
        drawAlarms(choices), {} };
    const LocalTime first = base.when.start;
    NewEvent event { { calendar, uid, base, false, false, Grid::Days, { first }, {}, {}, {}, {} }, {} };
    Series &series = event.series;
    if (choices.oneIn(4))
        return event;
    const Rule rule = drawRule(choices, form, first);
    series.setRule(rule, first);
    event.rule = rule.text(form, first);
    for (std::size_t i = choices.below(3); i > 0; --i) {
        const days by { static_cast<int>(choices.below(40)) + 1 };
        const LocalTime added = first + by + hours { form == Form::Day ? 0 : 5 };
        if (series.starts.insert(added).second)
            series.added.insert(added);
    }
    const auto someStart = [&] {
        const std::size_t at = choices.below(std::min<std::size_t>(series.starts.size(), 20));
        return *std::next(series.starts.begin(), static_cast<std::ptrdiff_t>(at));
    };
    for (std::size_t i = choices.below(3); i > 0; --i) {
        const LocalTime start = someStart();
        if (series.live().size() > 1)
            series.excluded.insert(start);
    }
    for (std::size_t i = choices.below(3); i > 0; --i) {
        const LocalTime start = someStart();
        if (!series.isLive(start))
            continue;
        Says says = series.at(start);
        says.title = drawText(choices);
        if (choices.oneIn(2))
            says.when.start += form == Form::Day ? seconds { kDay } : seconds { minutes { 135 } };
        series.own[start] = says;
    }
    return event;
}

QByteArray drawTag(Choices &choices, int number)
{
    static const std::array<QByteArray, 4> kLines { "X-OTHER-%1;X-PARAM=\"a:b\":kept", "x-lower-%1:Kept",
        "VENDOR%1;VALUE=TEXT:a\\,b;c", "ATTACH;FMTTYPE=text/plain:https://example.org/%1" };
    return QByteArray(choices.of(kLines)).replace("%1", QByteArray::number(number));
}

} // namespace mintaro::model
