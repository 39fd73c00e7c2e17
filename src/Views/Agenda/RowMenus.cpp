#include "Views/Agenda/RowMenus.h"

#include <QCoreApplication>

namespace mintaro {

namespace {

MenuItem entry(const QString &title, const QString &symbol, std::function<void()> action)
{
    return { .title = title, .symbol = symbol, .action = std::move(action) };
}

MenuItem destructive(const QString &title, std::function<void()> action)
{
    MenuItem item = entry(title, QStringLiteral("trash"), std::move(action));
    item.isDestructive = true;
    return item;
}

std::vector<MenuItem> eventMenu(AppState &appState, const CalendarEvent &event)
{
    const EKCalendarRef &calendar = event.ekEvent.calendar();
    const bool isWritable = calendar && calendar->allowsContentModifications;
    std::vector<MenuItem> items;
    if (isWritable)
        items.push_back(entry(
            qtTrId("Edit Event"), QStringLiteral("pencil"), [&appState, event] { appState.openEditEvent(event); }));
    items.push_back(entry(qtTrId("Copy Event Details"), QStringLiteral("doc.on.doc"),
        [&appState, event] { appState.copyEventDetails(event); }));
    items.push_back(entry(qtTrId("Open in Calendar"), QStringLiteral("calendar"),
        [&appState, event] { appState.openInCalendarApp(event); }));
    if (const auto &meeting = event.meetingInfo) {
        items.push_back(MenuItem::separator());
        items.push_back(entry(qtTrId("Join %@").arg(meeting->service), meeting->systemImage,
            [&appState, meeting = *meeting] { appState.openMeeting(meeting); }));
        items.push_back(entry(qtTrId("Copy Meeting Link"), QStringLiteral("link"),
            [&appState, meeting = *meeting] { appState.copyMeetingLink(meeting); }));
    }
    if (isWritable) {
        items.push_back(MenuItem::separator());
        items.push_back(
            destructive(qtTrId("Delete Event"), [&appState, event] { appState.requestDeleteEvent(event); }));
    }
    return items;
}

std::vector<MenuItem> reminderMenu(AppState &appState, const CalendarEvent &event)
{
    std::vector<MenuItem> items;
    items.push_back(entry(event.isCompleted ? qtTrId("Mark as Incomplete") : qtTrId("Mark as Completed"),
        QStringLiteral("checkmark.circle"), [&appState, id = event.reminderIdentifier] {
            if (id)
                appState.toggleReminder(*id);
        }));
    if (event.reminderURL)
        items.push_back(entry(qtTrId("Open Link"), QStringLiteral("link"),
            [&appState, url = *event.reminderURL] { appState.openURL(url); }));
    items.push_back(entry(qtTrId("Copy Reminder Details"), QStringLiteral("doc.on.doc"),
        [&appState, event] { appState.copyReminderDetails(event.title, event.startDate); }));
    items.push_back(
        entry(qtTrId("Open in Reminders"), QStringLiteral("list.bullet"), [&appState] { appState.openInReminders(); }));
    if (event.reminderIdentifier) {
        items.push_back(MenuItem::separator());
        items.push_back(destructive(
            qtTrId("Delete Reminder"), [&appState, id = *event.reminderIdentifier] { appState.deleteReminder(id); }));
    }
    return items;
}

} // namespace

std::vector<MenuItem> rowMenu(AppState &appState, const CalendarEvent &event)
{
    return event.isReminder ? reminderMenu(appState, event) : eventMenu(appState, event);
}

} // namespace mintaro
