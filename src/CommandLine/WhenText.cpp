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

QString WhenText::range(const CalendarEvent &event) const
{
    const QString dash = QStringLiteral(" - ");
    const bool isOneDay = m_calendar.isDateInSameDay(event.startDate, event.endDate);
    if (event.isAllDay)
        return day(event.startDate) + (isOneDay ? QString() : dash + day(event.endDate));
    if (isOneDay)
        return day(event.startDate) + u' ' + event.timeRange(m_calendar.timeZone());
    return moment(event.startDate) + dash + moment(event.endDate);
}

} // namespace mintaro
