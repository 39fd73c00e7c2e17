#include "Platform/EventKit/EKEvent.h"

#include "Platform/EventKit/EventItem.h"

namespace mintaro {

namespace {

std::optional<QString> present(const QString &text)
{
    return text.isNull() ? std::nullopt : std::optional(text);
}

} // namespace

EKEvent::EKEvent()
    : m_item(std::make_shared<const EventItem>())
{
}

EKEvent::EKEvent(std::shared_ptr<const EventItem> item, EKCalendarRef calendar, QString identifierSuffix,
    const EventOccurrence &occurrence)
    : m_item(std::move(item))
    , m_calendar(std::move(calendar))
    , m_identifierSuffix(std::move(identifierSuffix))
    , m_occurrence(occurrence)
{
}

QString EKEvent::eventIdentifier() const
{
    return m_calendar ? m_calendar->calendarIdentifier + u'/' + m_item->uid + m_identifierSuffix : QString();
}

QString EKEvent::calendarItemExternalIdentifier() const
{
    return m_item->uid;
}

std::optional<QString> EKEvent::title() const
{
    return present(changed(&EventChanges::title, m_item->title));
}

std::optional<QString> EKEvent::location() const
{
    return present(changed(&EventChanges::location, m_item->location));
}

std::optional<QString> EKEvent::notes() const
{
    return present(changed(&EventChanges::notes, m_item->notes));
}

std::optional<QString> EKEvent::url() const
{
    return present(m_item->url);
}

bool EKEvent::isAllDay() const
{
    return changed(&EventChanges::isAllDay, m_item->isAllDay);
}

const std::vector<EKParticipant> &EKEvent::attendees() const
{
    return m_item->attendees;
}

const std::vector<EKAlarm> &EKEvent::alarms() const
{
    return changed(&EventChanges::alarms, m_item->alarms);
}

const std::vector<EKRecurrenceRule> &EKEvent::recurrenceRules() const
{
    return changed(&EventChanges::recurrenceRules, m_item->recurrenceRules);
}

template <typename Edit>
void EKEvent::edit(const Edit &edit)
{
    auto changes = m_changes ? std::make_shared<EventChanges>(*m_changes) : std::make_shared<EventChanges>();
    edit(*changes);
    m_changes = changes->isEmpty() ? nullptr : std::move(changes);
}

template <typename Value>
void EKEvent::change(std::optional<Value> EventChanges::*field, const Value &value, const Value &stored)
{
    // A detached event has nothing that could stay as it is.
    const bool isStored = m_calendar && value == stored;
    edit([&](EventChanges &changes) { changes.*field = isStored ? std::nullopt : std::optional(value); });
}

void EKEvent::setTitle(const std::optional<QString> &title)
{
    change(&EventChanges::title, title.value_or(QString()), m_item->title);
}

void EKEvent::setLocation(const std::optional<QString> &location)
{
    change(&EventChanges::location, location.value_or(QString()), m_item->location);
}

void EKEvent::setNotes(const std::optional<QString> &notes)
{
    change(&EventChanges::notes, notes.value_or(QString()), m_item->notes);
}

void EKEvent::setStartDate(Date start)
{
    change(&EventChanges::start, start, m_occurrence.start);
}

void EKEvent::setEndDate(Date end)
{
    change(&EventChanges::end, end, m_occurrence.end);
}

void EKEvent::setAllDay(bool isAllDay)
{
    change(&EventChanges::isAllDay, isAllDay, m_item->isAllDay);
}

void EKEvent::setRecurrenceRules(const std::vector<EKRecurrenceRule> &rules)
{
    change(&EventChanges::recurrenceRules, rules, m_item->recurrenceRules);
}

void EKEvent::setAlarms(const std::vector<EKAlarm> &alarms)
{
    change(&EventChanges::alarms, alarms, m_item->alarms);
}

void EKEvent::setCalendar(const EKCalendarRef &calendar)
{
    const bool isStored = calendar && m_calendar && calendar->calendarIdentifier == m_calendar->calendarIdentifier;
    edit([&](EventChanges &changes) { changes.calendar = isStored ? nullptr : calendar; });
}

} // namespace mintaro
