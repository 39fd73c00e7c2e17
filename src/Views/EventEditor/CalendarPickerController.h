#pragma once

#include "Platform/EventKit/EKCalendar.h"

#include <QObject>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include <optional>
#include <vector>

namespace mintaro {

/// Which calendar an event is in.
class CalendarPickerController : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(std::vector<mintaro::EKCalendarRef> calendars READ calendars WRITE setCalendars NOTIFY calendarsChanged)
    Q_PROPERTY(std::optional<QString> selectedCalendarID READ selectedCalendarID WRITE setSelectedCalendarID NOTIFY
            selectedCalendarIDChanged)
    Q_PROPERTY(QList<QString> titles READ titles NOTIFY calendarsChanged)
    Q_PROPERTY(QList<QString> colors READ colors NOTIFY calendarsChanged)
    Q_PROPERTY(int selectedIndex READ selectedIndex NOTIFY selectedIndexChanged)

public:
    explicit CalendarPickerController(QObject *parent = nullptr);

    [[nodiscard]] const std::vector<EKCalendarRef> &calendars() const { return m_calendars; }
    void setCalendars(const std::vector<EKCalendarRef> &calendars);
    [[nodiscard]] const std::optional<QString> &selectedCalendarID() const { return m_selectedCalendarID; }
    void setSelectedCalendarID(const std::optional<QString> &identifier);
    [[nodiscard]] QStringList titles() const;
    /// As #rrggbb.
    [[nodiscard]] QStringList colors() const;
    /// -1 where the identifier is none of the calendars'.
    [[nodiscard]] int selectedIndex() const;

    /// The user's choice of a row.
    Q_INVOKABLE void pick(int index);

Q_SIGNALS:
    void calendarsChanged();
    void selectedCalendarIDChanged();
    void selectedIndexChanged();
    /// The user chose another calendar.
    void picked();

private:
    std::vector<EKCalendarRef> m_calendars;
    std::optional<QString> m_selectedCalendarID;
};

} // namespace mintaro
