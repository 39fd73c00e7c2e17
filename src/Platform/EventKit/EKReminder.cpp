#include "Platform/EventKit/EKReminder.h"

#include "Platform/EventKit/ReminderRecord.h"

namespace mintaro {

namespace {

std::optional<QString> present(const QString &text)
{
    return text.isNull() ? std::nullopt : std::optional(text);
}

} // namespace

std::optional<Date> EKDueDateComponents::date(const Calendar &calendar) const
{
    return timeZone ? std::optional<Date>(timeZone->toInstant(readingOf(components))) : calendar.date(components);
}

EKReminder::EKReminder(std::shared_ptr<const ReminderRecord> record, EKCalendarRef calendar, QString identifierSuffix)
    : m_record(std::move(record))
    , m_calendar(std::move(calendar))
    , m_identifierSuffix(std::move(identifierSuffix))
    , m_isCompleted(storedCompleted())
    , m_completionDate(storedCompletionDate())
{
}

QString EKReminder::calendarItemIdentifier() const
{
    return m_calendar->calendarIdentifier + u'/' + m_record->uid + m_identifierSuffix;
}

QString EKReminder::title() const
{
    return m_record->title;
}

std::optional<QString> EKReminder::notes() const
{
    return present(m_record->notes);
}

std::optional<QString> EKReminder::url() const
{
    return present(m_record->url);
}

std::optional<EKDueDateComponents> EKReminder::dueDateComponents() const
{
    if (!m_record->due)
        return std::nullopt;
    const EventTime &due = *m_record->due;
    EKDueDateComponents result { componentsOf(due.reading), due.form != TimeForm::Day, std::nullopt };
    if (due.isZoned())
        result.timeZone = due.zone;
    return result;
}

bool EKReminder::storedCompleted() const
{
    return m_record->isCompleted;
}

std::optional<Date> EKReminder::storedCompletionDate() const
{
    return m_record->completionDate;
}

} // namespace mintaro
