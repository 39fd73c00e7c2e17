#include "App/AppState.h"

#include "Platform/EventKit/StoreBackend.h"

#include <QPointer>

namespace mintaro {

namespace {

std::optional<QString> present(const QString &text)
{
    return text.isEmpty() ? std::nullopt : std::optional(text);
}

/// All occurrences of a series share the identifier; that of a new event is empty.
std::pair<QString, Date> draftKey(const std::optional<EKEvent> &event)
{
    return event ? std::pair(event->eventIdentifier(), event->startDate()) : std::pair(QString(), Date());
}

} // namespace

void AppState::setShowingSearch(bool isShowing)
{
    if (std::exchange(m_isShowingSearch, isShowing) != isShowing)
        Q_EMIT isShowingSearchChanged();
}

void AppState::setShowingDeleteConfirmation(bool isShowing)
{
    if (std::exchange(m_isShowingDeleteConfirmation, isShowing) != isShowing)
        Q_EMIT isShowingDeleteConfirmationChanged();
}

void AppState::setShowingSpanPicker(bool isShowing)
{
    if (std::exchange(m_isShowingSpanPicker, isShowing) != isShowing)
        Q_EMIT isShowingSpanPickerChanged();
}

void AppState::setErrorMessage(const QString &message)
{
    if (std::exchange(m_errorMessage, message) != message)
        Q_EMIT errorMessageChanged();
}

void AppState::tellOfFailure(const QString &message)
{
    m_logger.error(message);
    setErrorMessage(message);
}

void AppState::setPendingDeleteEvent(const std::optional<CalendarEvent> &event)
{
    const bool hadOne = m_pendingDeleteEvent.has_value();
    m_pendingDeleteEvent = event;
    if (hadOne || event)
        Q_EMIT pendingDeleteEventChanged();
}

void AppState::requestDeleteEvent(const CalendarEvent &event)
{
    setPendingDeleteEvent(event);
    if (event.ekEvent.hasRecurrenceRules())
        setShowingSpanPicker(true);
    else
        setShowingDeleteConfirmation(true);
}

QCoro::Task<> AppState::deleteEvent(CalendarEvent event, EKSpan span)
{
    const QPointer<AppState> self(this);
    try {
        // All occurrences of a series share the identifier: the start says which one the user pointed at.
        const auto found = co_await m_eventStore.eventWithIdentifier(event.id, event.startDate);
        if (!self)
            co_return;
        if (found) {
            co_await m_eventStore.deleteEvent(*found, span);
            if (!self)
                co_return;
            m_logger.info(QStringLiteral("Event deleted successfully"));
            co_await refreshAll();
        }
    } catch (const EKError &error) {
        if (!self)
            co_return;
        tellOfFailure(QStringLiteral("Failed to delete event: %1").arg(QString::fromUtf8(error.what())));
    }
    // Meanwhile the user may have been asked about another.
    const bool isPending = self && m_pendingDeleteEvent && m_pendingDeleteEvent->id == event.id
        && m_pendingDeleteEvent->startDate == event.startDate;
    if (isPending)
        setPendingDeleteEvent(std::nullopt);
}

void AppState::openNewEvent()
{
    m_editingEvent.reset();
    if (m_eventEditor)
        m_eventEditor->openEventEditor(std::nullopt);
}

QCoro::Task<> AppState::openEditEvent(CalendarEvent event)
{
    const QPointer<AppState> self(this);
    auto found = co_await m_eventStore.eventWithIdentifier(event.id, event.startDate);
    if (!self || !found)
        co_return;
    m_editingEvent = std::move(found);
    if (m_eventEditor)
        m_eventEditor->openEventEditor(m_editingEvent);
}

QCoro::Task<> AppState::saveEvent(std::optional<EKEvent> ekEvent, EventDraft draft, EKSpan span)
{
    const QPointer<AppState> self(this);
    EKEvent event = ekEvent.value_or(EKEvent());
    event.setTitle(draft.title);
    event.setStartDate(draft.startDate);
    event.setEndDate(draft.endDate);
    event.setAllDay(draft.isAllDay);
    event.setLocation(present(draft.location));
    event.setNotes(present(draft.notes));
    event = co_await m_eventStore.setCalendar(event, draft.calendarID);
    if (!self)
        co_return;
    event.setRecurrenceRules(
        draft.recurrenceRule ? std::vector { *draft.recurrenceRule } : std::vector<EKRecurrenceRule>());
    event.setAlarms(draft.alarm ? std::vector { *draft.alarm } : std::vector<EKAlarm>());
    co_await m_eventStore.save(event, span);
    if (!self)
        co_return;
    m_logger.info(QStringLiteral("Event saved successfully"));
    co_await refreshAll();
}

void AppState::keepRejectedDraft(const std::optional<EKEvent> &ekEvent, const EventDraft &draft)
{
    m_rejectedDrafts.insert_or_assign(draftKey(ekEvent), RejectedDraft { ekEvent, draft });
}

std::optional<EventDraft> AppState::takeRejectedDraft(const std::optional<EKEvent> &ekEvent)
{
    const auto kept = m_rejectedDrafts.extract(draftKey(ekEvent));
    if (kept.empty())
        return std::nullopt;
    const auto &[event, draft] = kept.mapped();
    // What others changed in the event meanwhile is not put back.
    if (ekEvent && event)
        return EventDraft::fromEvent(*ekEvent).withEdits(EventDraft::fromEvent(*event), draft);
    return draft;
}

} // namespace mintaro
