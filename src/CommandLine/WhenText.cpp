#include "CommandLine/WhenText.h"

#include "Extensions/DateHelpers.h"

namespace mintaro {

WhenText::WhenText(const Environment &environment)
    : m_calendar(environment.calendar())
    , m_format(DateFormatter::withTemplate(QStringLiteral("EEEdMMMy"), environment.locale()))
{
}

QString WhenText::day(Date date) const
{
    return m_format.string(date, m_calendar.timeZone());
}

QString WhenText::moment(Date date) const
{
    return day(date) + u' ' + clockReading(date, m_calendar.timeZone());
}

QString WhenText::range(Date start, Date end, bool isAllDay) const
{
    const QString dash = QStringLiteral(" - ");
    const bool isOneDay = m_calendar.isDateInSameDay(start, end);
    if (isAllDay)
        return day(start) + (isOneDay ? QString() : dash + day(end));
    return moment(start) + dash + (isOneDay ? clockReading(end, m_calendar.timeZone()) : moment(end));
}

} // namespace mintaro
