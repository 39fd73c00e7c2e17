#include "App/AppState.h"

#include "Platform/AppKit/AppleScript.h"
#include "Platform/AppKit/Pasteboard.h"
#include "Platform/Foundation/DateFormatter.h"

#include <QCoreApplication>
#include <QCoroTimer>
#include <QPointer>
#include <QTimer>

#include <chrono>

namespace mintaro {

using namespace std::chrono_literals;

namespace {

/// What a calendar program is given before it is asked for a day.
constexpr auto kStartTime = 1s;

/// The day is set before the month, and the month before the year.
QString dayScript(const DateComponents &day)
{
    return QStringList {
        QStringLiteral("set d to current date"),
        QStringLiteral("set day of d to %1").arg(day.day),
        QStringLiteral("set month of d to %1").arg(day.month),
        QStringLiteral("set year of d to %1").arg(day.year),
        QStringLiteral("tell application \"Calendar\""),
        QStringLiteral("    activate"),
        QStringLiteral("    switch view to day view"),
        QStringLiteral("    view calendar at d"),
        QStringLiteral("end tell"),
    }
        .join(u'\n');
}

} // namespace

// What is handed to other programs.

void AppState::openInCalendarApp(const CalendarEvent &event)
{
    if (m_calendarApplication)
        showInCalendarApp(m_environment.calendar().components(event.startDate));
}

QCoro::Task<> AppState::showInCalendarApp(const DateComponents &day)
{
    const QPointer<AppState> self(this);
    const QString script = dayScript(day); // the day is the caller's
    if (!co_await runScript(QStringLiteral("tell application \"Calendar\" to activate")))
        co_return;
    QTimer pause;
    pause.start(kStartTime);
    co_await pause;
    if (self)
        co_await runScript(script);
}

/// False where it failed, which the user is told of, and where this is gone.
QCoro::Task<bool> AppState::runScript(QString source)
{
    const QPointer<AppState> self(this);
    const AppleScript script(source);
    const DateComponents today = m_environment.calendar().components(m_environment.now());
    const auto failure = co_await script.execute(*m_calendarApplication, QDate(today.year, today.month, today.day));
    if (self && failure)
        tellOfFailure(*failure);
    co_return self && !failure;
}

void AppState::openInReminders()
{
    if (!m_workspace.open(*URL::fromString(QStringLiteral("x-apple-reminderkit://"))))
        tellOfFailure(qtTrId("remindersApp.missing"));
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
