#include "Views/EventEditor/EventEditorViewController.h"

#include "Platform/EventKit/StoreBackend.h"

#include <QCoreApplication>
#include <QPointer>

namespace mintaro {

namespace {

constexpr int kEarliestHour = 9;
constexpr int kHoursInDay = 24;
constexpr std::chrono::hours kLength { 1 };

} // namespace

EventEditorViewController::EventEditorViewController(AppState &appState, std::optional<EKEvent> existingEvent)
    : m_appState(appState)
    , m_existingEvent(std::move(existingEvent))
    , m_draft(initialDraft())
{
    if (auto rejected = appState.takeRejectedDraft(m_existingEvent)) {
        m_draft = *std::move(rejected);
        m_isRestored = true;
    }
}

QString EventEditorViewController::heading() const
{
    return m_existingEvent ? qtTrId("Edit Event") : qtTrId("New Event");
}

EventDraft EventEditorViewController::initialDraft() const
{
    if (m_existingEvent)
        return EventDraft::fromEvent(*m_existingEvent);
    const Date start = initialStart();
    return { .title = {}, .startDate = start, .endDate = start + kLength, .calendarID = m_defaultCalendarID };
}

/// The next full hour on the selected day, and none in the night.
Date EventEditorViewController::initialStart() const
{
    const Calendar calendar = m_appState.environment().calendar();
    const int hour = std::max(calendar.components(m_appState.environment().now()).hour + 1, kEarliestHour);
    const Date selected = m_appState.selectedDate();
    if (hour >= kHoursInDay)
        return selected;
    DateComponents components = calendar.components(selected);
    components.hour = hour;
    components.minute = 0;
    components.second = 0;
    return calendar.date(components).value_or(selected);
}

QCoro::Task<> EventEditorViewController::loadData()
{
    const QPointer<EventEditorViewController> self(this);
    auto calendars = co_await m_appState.eventStore().writableCalendars();
    if (!self)
        co_return;
    const EKCalendarRef standard = co_await m_appState.eventStore().defaultCalendarForNewEvents();
    if (!self)
        co_return;
    m_calendars = std::move(calendars);
    Q_EMIT calendarsChanged();
    if (m_existingEvent || !standard)
        co_return;
    m_defaultCalendarID = standard->calendarIdentifier;
    if (!m_draft.calendarID)
        setSelectedCalendarID(m_defaultCalendarID);
}

template <typename Value>
void EventEditorViewController::change(
    Value EventDraft::*field, const Value &value, void (EventEditorViewController::*changed)())
{
    if (std::exchange(m_draft.*field, value) != value)
        Q_EMIT(this->*changed)();
}

void EventEditorViewController::setTitle(const QString &title)
{
    const bool couldSave = canSave();
    change(&EventDraft::title, title, &EventEditorViewController::titleChanged);
    if (canSave() != couldSave)
        Q_EMIT canSaveChanged();
}

void EventEditorViewController::setStartDate(Date start)
{
    if (start == m_draft.startDate)
        return;
    const Calendar calendar = m_appState.environment().calendar();
    const LocalTime end = calendar.local(m_draft.endDate) + (calendar.local(start) - calendar.local(m_draft.startDate));
    setDates(start, calendar.date(componentsOf(end)).value_or(m_draft.endDate));
}

void EventEditorViewController::setEndDate(Date end)
{
    setDates(m_draft.startDate, end);
}

void EventEditorViewController::setDates(Date start, Date end)
{
    if (start == m_draft.startDate && end == m_draft.endDate)
        return;
    const auto offset = alertOffset();
    // An alert at a fixed moment goes along with the event that it is for.
    if (start != m_draft.startDate && m_draft.alarm && m_draft.alarm->absoluteDate)
        m_draft.alarm = EKAlarm { {}, *offset };
    m_draft.startDate = start;
    m_draft.endDate = end;
    Q_EMIT datesChanged();
    if (alertOffset() != offset)
        Q_EMIT alertOffsetChanged();
}

void EventEditorViewController::setAllDay(bool isAllDay)
{
    change(&EventDraft::isAllDay, isAllDay, &EventEditorViewController::isAllDayChanged);
}

void EventEditorViewController::setLocation(const QString &location)
{
    change(&EventDraft::location, location, &EventEditorViewController::locationChanged);
}

void EventEditorViewController::setNotes(const QString &notes)
{
    change(&EventDraft::notes, notes, &EventEditorViewController::notesChanged);
}

void EventEditorViewController::setSelectedCalendarID(const std::optional<QString> &identifier)
{
    change(&EventDraft::calendarID, identifier, &EventEditorViewController::selectedCalendarIDChanged);
}

void EventEditorViewController::setRecurrenceRule(const std::optional<EKRecurrenceRule> &rule)
{
    change(&EventDraft::recurrenceRule, rule, &EventEditorViewController::recurrenceRuleChanged);
}

std::optional<std::chrono::seconds> EventEditorViewController::alertOffset() const
{
    const auto &alarm = m_draft.alarm;
    if (!alarm)
        return std::nullopt;
    if (!alarm->absoluteDate)
        return alarm->relativeOffset;
    return std::chrono::floor<std::chrono::seconds>(*alarm->absoluteDate - m_draft.startDate);
}

void EventEditorViewController::setAlertOffset(const std::optional<std::chrono::seconds> &offset)
{
    change(&EventDraft::alarm, offset ? std::optional(EKAlarm { {}, *offset }) : std::nullopt,
        &EventEditorViewController::alertOffsetChanged);
}

void EventEditorViewController::applyParsed(const ParsedEvent &parsed)
{
    setDates(parsed.startDate.value_or(m_draft.startDate), parsed.endDate.value_or(m_draft.endDate));
    if (parsed.location)
        setLocation(*parsed.location);
    if (!parsed.title.isEmpty())
        setTitle(parsed.title);
}

void EventEditorViewController::dropRestored()
{
    replaceDraft(initialDraft());
    m_isRestored = false;
    Q_EMIT isRestoredChanged();
}

void EventEditorViewController::replaceDraft(const EventDraft &draft)
{
    setTitle(draft.title);
    setDates(draft.startDate, draft.endDate);
    setAllDay(draft.isAllDay);
    setLocation(draft.location);
    setNotes(draft.notes);
    setSelectedCalendarID(draft.calendarID);
    setRecurrenceRule(draft.recurrenceRule);
    change(&EventDraft::alarm, draft.alarm, &EventEditorViewController::alertOffsetChanged);
}

void EventEditorViewController::setShowSpanPicker(bool shows)
{
    if (std::exchange(m_showSpanPicker, shows) != shows)
        Q_EMIT showSpanPickerChanged();
}

void EventEditorViewController::setSaving(bool isSaving)
{
    m_isSaving = isSaving;
    Q_EMIT canSaveChanged();
}

void EventEditorViewController::handleSave()
{
    if (!canSave())
        return;
    if (m_existingEvent && m_existingEvent->hasRecurrenceRules())
        setShowSpanPicker(true);
    else
        performSave(EKSpan::ThisEvent);
}

void EventEditorViewController::chooseSpan(int span)
{
    setShowSpanPicker(false);
    performSave(static_cast<EKSpan>(span));
}

QCoro::Task<> EventEditorViewController::performSave(EKSpan span)
{
    const QPointer<EventEditorViewController> self(this);
    const QPointer<AppState> appState(&m_appState);
    const std::optional<EKEvent> existingEvent = m_existingEvent;
    const EventDraft draft = m_draft;
    setSaving(true);
    std::optional<QString> failure;
    try {
        co_await appState->saveEvent(existingEvent, draft, span);
    } catch (const EKError &error) {
        failure = QString::fromUtf8(error.what());
    }
    // What has gone cannot be opened any more: its input is offered for a new event.
    const bool isGone = failure && appState && existingEvent
        && !co_await appState->eventStore().eventWithIdentifier(
            existingEvent->eventIdentifier(), existingEvent->startDate());
    if (failure && appState) {
        appState->keepRejectedDraft(isGone ? std::nullopt : existingEvent, draft);
        appState->tellOfFailure(QStringLiteral("Failed to save event: %1").arg(*failure));
    }
    if (!self)
        co_return;
    m_isRestored = false;
    setSaving(false);
    closeEditor();
}

void EventEditorViewController::keepRestored()
{
    if (m_isRestored && !m_isSaving)
        m_appState.keepRejectedDraft(m_existingEvent, m_draft);
}

void EventEditorViewController::closeEditor()
{
    Q_EMIT closeRequested();
}

} // namespace mintaro
