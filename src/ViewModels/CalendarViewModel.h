#pragma once

#include "Models/DayItem.h"
#include "Platform/Foundation/DateFormatter.h"
#include "Platform/Foundation/Environment.h"

#include <QAbstractListModel>
#include <QHash>
#include <QList>

namespace mintaro {

enum class WeekStart { Sunday, Monday };

/// The month grid: six rows of seven cells in reading order, and a week number for each row. For the main thread.
class CalendarViewModel : public QAbstractListModel
{
    Q_OBJECT
    Q_PROPERTY(QList<int> weekNumbers READ weekNumbers NOTIFY weekNumbersChanged)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY isEmptyChanged)

public:
    enum Role {
        NumberRole = Qt::UserRole + 1,
        IsCurrentMonthRole,
        IsTodayRole,
        IsSelectedRole,
        EventColorsRole, ///< QStringList of #rrggbb
        AccessibleNameRole, ///< the whole date in words, with what the cell shows besides
    };
    Q_ENUM(Role)

    /// `environment` must outlive the object.
    explicit CalendarViewModel(const Environment &environment);

    /// Empty until the first generation, then 42 cells.
    [[nodiscard]] const std::vector<DayItem> &dayItems() const { return m_dayItems; }
    /// Of the first cell of each row, by the rules of the locale's calendar.
    [[nodiscard]] const QList<int> &weekNumbers() const { return m_weekNumbers; }
    [[nodiscard]] bool isEmpty() const { return m_dayItems.empty(); }

    /// Replaces both lists by those of the month that holds `month`.
    void generateMonth(
        Date month, Date selectedDate, const QHash<QString, std::vector<Color>> &eventColorsByDay, WeekStart weekStart);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void weekNumbersChanged();
    void isEmptyChanged();

private:
    void replaceDayItems(std::vector<DayItem> items);
    [[nodiscard]] QString accessibleName(const DayItem &item) const;

    const Environment &m_environment;
    DateFormatter m_wholeDate;
    std::vector<DayItem> m_dayItems;
    QList<int> m_weekNumbers;
};

} // namespace mintaro
