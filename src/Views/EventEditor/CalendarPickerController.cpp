#include "Views/EventEditor/CalendarPickerController.h"

#include <algorithm>

namespace mintaro {

CalendarPickerController::CalendarPickerController(QObject *parent)
    : QObject(parent)
{
    connect(this, &CalendarPickerController::calendarsChanged, this, &CalendarPickerController::selectedIndexChanged);
    connect(this, &CalendarPickerController::selectedCalendarIDChanged, this,
        &CalendarPickerController::selectedIndexChanged);
}

void CalendarPickerController::setCalendars(const std::vector<EKCalendarRef> &calendars)
{
    if (calendars == m_calendars)
        return;
    m_calendars = calendars;
    Q_EMIT calendarsChanged();
}

void CalendarPickerController::setSelectedCalendarID(const std::optional<QString> &identifier)
{
    if (identifier == m_selectedCalendarID)
        return;
    m_selectedCalendarID = identifier;
    Q_EMIT selectedCalendarIDChanged();
}

QStringList CalendarPickerController::titles() const
{
    QStringList titles;
    for (const EKCalendarRef &calendar : m_calendars)
        titles.append(calendar->title);
    return titles;
}

QStringList CalendarPickerController::colors() const
{
    QStringList colors;
    for (const EKCalendarRef &calendar : m_calendars)
        colors.append(calendar->cgColor.hex());
    return colors;
}

int CalendarPickerController::selectedIndex() const
{
    const auto found = std::ranges::find_if(m_calendars,
        [this](const EKCalendarRef &calendar) { return calendar->calendarIdentifier == m_selectedCalendarID; });
    return found == m_calendars.end() ? -1 : static_cast<int>(found - m_calendars.begin());
}

void CalendarPickerController::pick(int index)
{
    if (index < 0 || index >= static_cast<int>(m_calendars.size()) || index == selectedIndex())
        return;
    setSelectedCalendarID(m_calendars[static_cast<std::size_t>(index)]->calendarIdentifier);
    Q_EMIT picked();
}

} // namespace mintaro
