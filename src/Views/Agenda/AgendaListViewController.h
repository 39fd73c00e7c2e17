#pragma once

#include "Views/Agenda/EventListController.h"

namespace mintaro {

/// The days of the agenda. A refresh changes only the rows that differ.
class AgendaListViewController : public mintaro::EventListController
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(State state READ state NOTIFY stateChanged)

public:
    enum State { NoAccess, Empty, List };
    Q_ENUM(State)

    using EventListController::EventListController;

    void setAppState(AppState *appState) override;
    [[nodiscard]] State state() const { return m_state; }

    /// Opens what grants access to the calendars here.
    Q_INVOKABLE void openPrivacySettings();

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;

Q_SIGNALS:
    void stateChanged();
    /// The rows are those of another selected day.
    void dayShown();

protected:
    [[nodiscard]] Kind kindAt(int row) const override { return m_rows[static_cast<std::size_t>(row)].kind; }
    [[nodiscard]] Row rowAt(int row) const override { return m_rows[static_cast<std::size_t>(row)]; }
    [[nodiscard]] std::optional<CalendarEvent> eventAt(int row) const override;

private:
    void update();
    /// At the label's tick: what has ended since the last one.
    void dimPast();
    void setState(State state);
    [[nodiscard]] std::vector<Row> rows(const std::vector<DayEvents> &days) const;
    [[nodiscard]] static QStringList keys(const std::vector<Row> &rows);
    void replaceRows(std::vector<Row> rows);

    std::optional<DateFormatter> m_dayFormat;
    std::vector<Row> m_rows;
    State m_state = NoAccess;
};

} // namespace mintaro
