#include "Views/EventEditor/DateTimeFieldController.h"

namespace mintaro {

namespace {

using Part = DateEntryFormat::Part;

constexpr int kMonthsInYear = 12;
constexpr int kNoon = 12;

/// How far a long step goes.
int longStep(Part part)
{
    switch (part) {
    case Part::Day:
        return 7;
    case Part::Month:
        return 3;
    case Part::Year:
        return 10;
    case Part::Hour:
        return 6;
    case Part::Minute:
        return 15;
    case Part::DayPeriod:
        return 1;
    }
    return 1;
}

/// The part at the cursor, or before it, or the first.
std::size_t partAt(const QString &text, int cursor)
{
    const auto ranges = DateEntryFormat::partRanges(text);
    std::size_t index = 0;
    while (index + 1 < ranges.size() && ranges[index].end < cursor)
        ++index;
    return index;
}

} // namespace

void DateTimeFieldController::setAppState(AppState *appState)
{
    m_appState = appState;
    m_format.emplace(appState->environment().locale());
    connect(
        &appState->environment(), &Environment::significantTimeChange, this, &DateTimeFieldController::textsChanged);
    Q_EMIT textsChanged();
}

void DateTimeFieldController::setDate(Date date)
{
    if (date == m_date)
        return;
    m_date = date;
    Q_EMIT dateChanged();
    Q_EMIT textsChanged();
}

QString DateTimeFieldController::dayText() const
{
    return m_format ? m_format->string(m_appState->environment().calendar().civilDay(m_date)) : QString();
}

QString DateTimeFieldController::timeText() const
{
    if (!m_format)
        return {};
    const DateComponents parts = m_appState->environment().calendar().components(m_date);
    return m_format->string(ClockReading { parts.hour, parts.minute });
}

bool DateTimeFieldController::accepts(Entry entry, const QString &text) const
{
    return read(entry, text).has_value();
}

void DateTimeFieldController::apply(Entry entry, const QString &text)
{
    if (const auto date = read(entry, text))
        edit(*date);
}

TextRange DateTimeFieldController::step(Entry entry, const QString &typed, int cursor, int steps, bool isLong)
{
    const std::vector<Part> &parts = entry == Day ? m_format->dateParts() : m_format->timeParts();
    const std::size_t index = partAt(typed, cursor);
    const auto from = read(entry, typed);
    const auto to = from && index < parts.size() ? moved(parts[index], steps, isLong, *from) : std::nullopt;
    if (!to)
        return {};
    edit(*to);
    const auto range = DateEntryFormat::partRanges(text(entry)).at(index);
    return { static_cast<int>(range.start), static_cast<int>(range.end) };
}

void DateTimeFieldController::moveToDay(Date day)
{
    const Calendar calendar = m_appState->environment().calendar();
    apply(Day, m_format->string(calendar.civilDay(day)));
}

std::optional<Date> DateTimeFieldController::read(Entry entry, const QString &text) const
{
    if (!m_format)
        return std::nullopt;
    const Calendar calendar = m_appState->environment().calendar();
    DateComponents parts = calendar.components(m_date);
    const DateComponents before = parts;
    if (entry == Day) {
        const auto day = m_format->day(text, calendar.civilDay(m_date));
        if (!day)
            return std::nullopt;
        parts.year = int { day->year() };
        parts.month = static_cast<int>(unsigned { day->month() });
        parts.day = static_cast<int>(unsigned { day->day() });
    } else {
        const auto reading = m_format->time(text);
        if (!reading)
            return std::nullopt;
        parts.hour = reading->hour;
        parts.minute = reading->minute;
    }
    if (parts == before)
        return m_date;
    parts.second = entry == Time ? 0 : parts.second;
    return calendar.date(parts);
}

std::optional<Date> DateTimeFieldController::moved(Part part, int steps, bool isLong, Date from) const
{
    const Calendar calendar = m_appState->environment().calendar();
    const int amount = steps * (isLong ? longStep(part) : 1);
    Date to = from;
    switch (part) {
    case Part::Day:
        return calendar.dateByAdding(Calendar::Component::Day, amount, from);
    case Part::Month:
        return calendar.dateByAdding(Calendar::Component::Month, amount, from);
    case Part::Year:
        return calendar.dateByAdding(Calendar::Component::Month, amount * kMonthsInYear, from);
    // Hours that pass, so that a clock change is stepped through as it happens.
    case Part::Hour:
        to += std::chrono::hours { amount };
        break;
    case Part::Minute:
        to += std::chrono::minutes { amount };
        break;
    case Part::DayPeriod: {
        DateComponents parts = calendar.components(from);
        parts.hour += parts.hour < kNoon ? kNoon : -kNoon;
        return calendar.date(parts);
    }
    }
    return calendar.date(calendar.components(to)) ? std::optional(to) : std::nullopt;
}

void DateTimeFieldController::edit(Date date)
{
    if (date == m_date)
        return;
    setDate(date);
    Q_EMIT edited();
}

} // namespace mintaro
