#pragma once

#include "App/AppState.h"
#include "Platform/Foundation/DateFormatter.h"
#include "Views/Components/ContextMenuModel.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

namespace mintaro {

/// The agenda as a flat list: a header for each day, under it a row for each event or reminder. A refresh changes only
/// the rows that differ.
class AgendaListViewController : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(mintaro::AppState *appState READ appState WRITE setAppState REQUIRED)
    Q_PROPERTY(State state READ state NOTIFY stateChanged)
    Q_PROPERTY(mintaro::ContextMenuModel *menu READ menu CONSTANT)

public:
    enum State { NoAccess, Empty, List };
    Q_ENUM(State)
    enum Kind { DaySection, Event, Reminder };
    Q_ENUM(Kind)
    enum Role {
        KindRole = Qt::UserRole + 1,
        TitleRole,
        IsTodayRole,
        TimeRangeRole,
        LocationRole,
        ColorRole,
        ServiceRole, ///< the meeting service's name, empty without a meeting
        ServiceSymbolRole,
        IsPastRole,
        IsCompletedRole,
        AccessibleNameRole,
    };
    Q_ENUM(Role)

    using QAbstractListModel::QAbstractListModel;

    [[nodiscard]] AppState *appState() const { return m_appState; }
    void setAppState(AppState *appState);
    [[nodiscard]] State state() const { return m_state; }

    /// Opens the meeting of the event in that row.
    Q_INVOKABLE void joinMeeting(int row);
    [[nodiscard]] ContextMenuModel *menu() { return &m_menu; }
    /// Fills the menu with what can be done to that row; false where there is nothing.
    Q_INVOKABLE bool prepareMenu(int row);
    /// The nearest row after `row` (by 1) or before it (by -1) that is no heading; by 0 the row itself where it is
    /// none, else the next. -1 where there is none.
    Q_INVOKABLE [[nodiscard]] int nextItem(int row, int by) const;
    /// Opens what grants access to the calendars here.
    Q_INVOKABLE void openPrivacySettings();

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void stateChanged();

private:
    struct Row
    {
        QString key;
        Kind kind = DaySection;
        QString title;
        bool isToday = false;
        QString timeRange;
        QString location;
        Color color;
        std::optional<MeetingInfo> meetingInfo;
        bool isPast = false;
        bool isCompleted = false;
        friend bool operator==(const Row &, const Row &) = default;
    };

    void update();
    void setState(State state);
    [[nodiscard]] std::vector<Row> rows(const std::vector<DayEvents> &days) const;
    [[nodiscard]] Row headerRow(Date day, const Calendar &calendar) const;
    [[nodiscard]] Row itemRow(const CalendarEvent &event, Date day, const Calendar &calendar) const;
    [[nodiscard]] QString accessibleName(const Row &row) const;
    [[nodiscard]] std::optional<CalendarEvent> eventAt(int row) const;
    [[nodiscard]] std::vector<MenuItem> menuItems(const CalendarEvent &event) const;
    [[nodiscard]] static QStringList keys(const std::vector<Row> &rows);
    void replaceRows(std::vector<Row> rows);

    AppState *m_appState = nullptr;
    std::optional<DateFormatter> m_dayFormat;
    std::vector<Row> m_rows;
    ContextMenuModel m_menu;
    State m_state = NoAccess;
};

} // namespace mintaro
