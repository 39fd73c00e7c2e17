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

EKEvent::EKEvent(std::shared_ptr<const EventItem> item, EKCalendarRef calendar, QString identifierSuffix, Date start,
    Date end, Date occurrence)
    : m_item(std::move(item))
    , m_calendar(std::move(calendar))
    , m_identifierSuffix(std::move(identifierSuffix))
    , m_start(start)
    , m_end(end)
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
    return present(m_item->title);
}

std::optional<QString> EKEvent::location() const
{
    return present(m_item->location);
}

std::optional<QString> EKEvent::notes() const
{
    return present(m_item->notes);
}

std::optional<QString> EKEvent::url() const
{
    return present(m_item->url);
}

bool EKEvent::isAllDay() const
{
    return m_item->isAllDay;
}

const std::vector<EKParticipant> &EKEvent::attendees() const
{
    return m_item->attendees;
}

const std::vector<EKAlarm> &EKEvent::alarms() const
{
    return m_item->alarms;
}

const std::vector<EKRecurrenceRule> &EKEvent::recurrenceRules() const
{
    return m_item->recurrenceRules;
}

} // namespace mintaro
