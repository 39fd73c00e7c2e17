#pragma once

#include "Platform/EventKit/EKCalendar.h"
#include "Views/Settings/CalendarSelection.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

#include <vector>

namespace mintaro {

/// Calendars to choose from, each with whether it is chosen: in the store's order, or under their sources, which open
/// and close. A row is a source or a calendar.
class CalendarChecklist : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("A controller fills it")
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY isEmptyChanged)

public:
    enum Role { IsGroupRole = Qt::UserRole + 1, TitleRole, ColorRole, IsOnRole, IsExpandedRole };
    Q_ENUM(Role)
    enum class Grouping { None, BySource };

    /// `defaults` must outlive the object.
    CalendarChecklist(UserDefaults &defaults, const QString &key, Grouping grouping);

    void setCalendars(std::vector<EKCalendarRef> calendars);
    /// The store has none.
    [[nodiscard]] bool isEmpty() const { return m_calendars.empty(); }

    Q_INVOKABLE void setOn(int row, bool isOn);
    /// All are closed at first.
    Q_INVOKABLE void setExpanded(int row, bool isExpanded);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void isEmptyChanged();

private:
    struct Row
    {
        QString source;
        /// Null: the row is the source itself.
        EKCalendarRef calendar;
        friend bool operator==(const Row &, const Row &) = default;
    };

    [[nodiscard]] std::vector<Row> rows() const;
    void update();
    void onPreferenceChanged(const QString &key);

    CalendarSelection m_selection;
    const Grouping m_grouping;
    std::vector<EKCalendarRef> m_calendars;
    QSet<QString> m_expandedSources;
    std::vector<Row> m_rows;
};

} // namespace mintaro
