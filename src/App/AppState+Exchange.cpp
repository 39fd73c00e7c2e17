#include "App/AppState.h"

#include "Platform/AppKit/CalendarApplication.h"
#include "Platform/AppKit/Pasteboard.h"
#include "Platform/Foundation/DateFormatter.h"

#include <QPointer>

namespace mintaro {

// What is handed to other programs.

void AppState::openInCalendarApp(const CalendarEvent &event)
{
    if (m_calendarApplication)
        showInCalendarApp(m_environment.calendar().civilDay(event.startDate));
}

QCoro::Task<> AppState::showInCalendarApp(std::chrono::year_month_day day)
{
    const QPointer<AppState> self(this);
    const std::optional<QString> failure = co_await m_calendarApplication->show(day);
    if (self && failure)
        tellOfFailure(*failure);
}

void AppState::copyEventDetails(const CalendarEvent &event)
{
    QStringList lines { event.title, event.timeRange(m_environment.timeZone()) };
    if (event.location && !event.location->isEmpty())
        lines.append(*event.location);
    copy(lines.join(u'\n'));
}

void AppState::copyReminderDetails(const QString &title, std::optional<Date> dueDate)
{
    QStringList lines { title };
    if (dueDate) {
        const auto format = DateFormatter::withTemplate(QStringLiteral("MMMdjmm"), m_environment.locale());
        lines.append(format.string(*dueDate, m_environment.timeZone()));
    }
    copy(lines.join(u'\n'));
}

void AppState::copyMeetingLink(const MeetingInfo &meeting)
{
    copy(meeting.url.absoluteString());
}

void AppState::copy(const QString &text)
{
    if (!m_pasteboard)
        return;
    m_pasteboard->clearContents();
    m_pasteboard->setString(text);
}

} // namespace mintaro
