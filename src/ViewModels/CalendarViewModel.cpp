#include "ViewModels/CalendarViewModel.h"

#include <QCoreApplication>
#include <QStringList>

namespace mintaro {

namespace {

constexpr int kCells = 42;
constexpr int kColumns = 7;
constexpr int kUsualMonthLength = 30;

int leadingCells(int weekday, WeekStart weekStart)
{
    if (weekStart == WeekStart::Sunday)
        return weekday - 1;
    return weekday == 1 ? 6 : weekday - 2;
}

/// Adds cells to a month whose calendar, selection and present day are known.
class MonthBuilder
{
public:
    MonthBuilder(const Calendar &calendar, const QHash<QString, std::vector<Color>> &colors)
        : m_calendar(calendar)
        , m_colors(colors)
    {
    }

    /// `count` cells from `offset` days after `first`, numbered from `firstNumber`.
    void append(Date first, int offset, int firstNumber, int count)
    {
        for (int i = 0; i < count; ++i) {
            const Date date = m_calendar.dateByAdding(Calendar::Component::Day, offset + i, first).value_or(first);
            items.push_back({ .date = date,
                .number = QString::number(firstNumber + i),
                .eventColors = m_colors.value(dateKey(date, m_calendar)) });
        }
    }

    std::vector<DayItem> items;

private:
    const Calendar &m_calendar;
    const QHash<QString, std::vector<Color>> &m_colors;
};

} // namespace

CalendarViewModel::CalendarViewModel(const Environment &environment)
    : m_environment(environment)
    , m_wholeDate(DateFormatter::withTemplate(QStringLiteral("EEEEMMMMdy"), environment.locale()))
{
}

void CalendarViewModel::generateMonth(
    Date month, Date selectedDate, const QHash<QString, std::vector<Color>> &eventColorsByDay, WeekStart weekStart)
{
    const Calendar calendar = m_environment.calendar();
    const auto interval = calendar.monthInterval(month);
    if (!interval)
        return;
    const Date first = interval->start;
    const int leading = leadingCells(calendar.components(first).weekday, weekStart);
    const int length = calendar.daysInMonth(month).value_or(kUsualMonthLength);
    const auto previous = calendar.dateByAdding(Calendar::Component::Month, -1, first);
    const int previousLength = (previous ? calendar.daysInMonth(*previous) : std::nullopt).value_or(kUsualMonthLength);

    MonthBuilder builder(calendar, eventColorsByDay);
    builder.append(first, -leading, previousLength - leading + 1, leading);
    builder.append(first, 0, 1, length);
    builder.append(interval->end, 0, 1, kCells - leading - length);

    const Date now = m_environment.now();
    for (int i = leading; i < leading + length; ++i) {
        DayItem &item = builder.items[static_cast<std::size_t>(i)];
        item.isCurrentMonth = true;
        item.isToday = calendar.isDateInSameDay(item.date, now);
        item.isSelected = calendar.isDateInSameDay(item.date, selectedDate);
    }
    QList<int> weekNumbers;
    for (std::size_t i = 0; i < builder.items.size(); i += kColumns)
        weekNumbers.append(calendar.weekOfYear(builder.items[i].date));

    replaceDayItems(std::move(builder.items));
    if (std::exchange(m_weekNumbers, weekNumbers) != weekNumbers)
        Q_EMIT weekNumbersChanged();
}

void CalendarViewModel::replaceDayItems(std::vector<DayItem> items)
{
    if (m_dayItems.empty()) {
        beginInsertRows({}, 0, static_cast<int>(items.size()) - 1);
        m_dayItems = std::move(items);
        endInsertRows();
        Q_EMIT isEmptyChanged();
        return;
    }
    const std::vector<DayItem> before = std::exchange(m_dayItems, std::move(items));
    for (std::size_t i = 0; i < m_dayItems.size(); ++i) {
        if (before[i] == m_dayItems[i])
            continue;
        const QModelIndex changed = index(static_cast<int>(i));
        Q_EMIT dataChanged(changed, changed);
    }
}

int CalendarViewModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_dayItems.size());
}

QVariant CalendarViewModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const DayItem &item = m_dayItems[static_cast<std::size_t>(index.row())];
    switch (role) {
    case NumberRole:
        return item.number;
    case IsCurrentMonthRole:
        return item.isCurrentMonth;
    case IsTodayRole:
        return item.isToday;
    case IsSelectedRole:
        return item.isSelected;
    case EventColorsRole: {
        QStringList colors;
        for (const Color &color : item.eventColors)
            colors.append(color.hex());
        return colors;
    }
    case AccessibleNameRole:
        return accessibleName(item);
    default:
        return {};
    }
}

QHash<int, QByteArray> CalendarViewModel::roleNames() const
{
    return { { NumberRole, "number" }, { IsCurrentMonthRole, "isCurrentMonth" }, { IsTodayRole, "isToday" },
        { IsSelectedRole, "isSelected" }, { EventColorsRole, "eventColors" },
        { AccessibleNameRole, "accessibleName" } };
}

QString CalendarViewModel::accessibleName(const DayItem &item) const
{
    QStringList parts { m_wholeDate.string(item.date, m_environment.timeZone()) };
    if (item.isToday)
        parts.append(qtTrId("Today"));
    if (!item.eventColors.empty())
        parts.append(qtTrId("accessibility.hasEvents"));
    return parts.join(QStringLiteral(", "));
}

} // namespace mintaro
