#include "Views/Settings/CalendarChecklist.h"

#include "Views/Components/ListDiff.h"

#include <QColor>

#include <algorithm>

namespace mintaro {

CalendarChecklist::CalendarChecklist(UserDefaults &defaults, const QString &key, Grouping grouping)
    : m_selection(defaults, key)
    , m_grouping(grouping)
{
    connect(&defaults, &UserDefaults::changed, this, &CalendarChecklist::onPreferenceChanged);
}

void CalendarChecklist::setCalendars(std::vector<EKCalendarRef> calendars)
{
    const bool wasEmpty = isEmpty();
    m_calendars = std::move(calendars);
    if (m_grouping == Grouping::BySource) {
        std::ranges::stable_sort(m_calendars, {},
            [](const EKCalendarRef &calendar) { return std::pair(calendar->source.title, calendar->title); });
    }
    update();
    if (isEmpty() != wasEmpty)
        Q_EMIT isEmptyChanged();
}

std::vector<CalendarChecklist::Row> CalendarChecklist::rows() const
{
    std::vector<Row> rows;
    for (const EKCalendarRef &calendar : m_calendars) {
        const QString &source = calendar->source.title;
        if (m_grouping == Grouping::BySource) {
            if (rows.empty() || rows.back().source != source)
                rows.push_back({ source, nullptr });
            if (!m_expandedSources.contains(source))
                continue;
        }
        rows.push_back({ source, calendar });
    }
    return rows;
}

void CalendarChecklist::update()
{
    const auto keys = [](const std::vector<Row> &list) {
        QStringList result;
        for (const Row &row : list)
            result.append(row.source + u'\n' + (row.calendar ? row.calendar->calendarIdentifier : QString()));
        return result;
    };
    std::vector<Row> next = rows();
    const ListDiff diff = listDiff(keys(m_rows), keys(next));
    for (const auto &[first, count] : diff.removals) {
        beginRemoveRows({}, first, first + count - 1);
        m_rows.erase(m_rows.begin() + first, m_rows.begin() + first + count);
        endRemoveRows();
    }
    for (const auto &[first, count] : diff.insertions) {
        beginInsertRows({}, first, first + count - 1);
        m_rows.insert(m_rows.begin() + first, next.begin() + first, next.begin() + first + count);
        endInsertRows();
    }
    m_rows = std::move(next);
    if (!m_rows.empty())
        Q_EMIT dataChanged(index(0), index(static_cast<int>(m_rows.size()) - 1));
}

void CalendarChecklist::onPreferenceChanged(const QString &key)
{
    if (key == m_selection.key() && !m_rows.empty())
        Q_EMIT dataChanged(index(0), index(static_cast<int>(m_rows.size()) - 1), { IsOnRole });
}

void CalendarChecklist::setOn(int row, bool isOn)
{
    const EKCalendarRef calendar = m_rows.at(static_cast<std::size_t>(row)).calendar;
    if (!calendar)
        return;
    QStringList all;
    for (const EKCalendarRef &each : m_calendars)
        all.append(each->calendarIdentifier);
    m_selection.set(calendar->calendarIdentifier, isOn, all);
}

void CalendarChecklist::setExpanded(int row, bool isExpanded)
{
    const QString source = m_rows.at(static_cast<std::size_t>(row)).source;
    if (isExpanded)
        m_expandedSources.insert(source);
    else
        m_expandedSources.remove(source);
    update();
}

int CalendarChecklist::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant CalendarChecklist::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Row &row = m_rows[static_cast<std::size_t>(index.row())];
    switch (role) {
    case IsGroupRole:
        return !row.calendar;
    case TitleRole:
        return row.calendar ? row.calendar->title : row.source;
    case ColorRole:
        return row.calendar ? row.calendar->cgColor.hex() : QString();
    case IsOnRole:
        return row.calendar && m_selection.contains(row.calendar->calendarIdentifier);
    case IsExpandedRole:
        return !row.calendar && m_expandedSources.contains(row.source);
    default:
        return {};
    }
}

QHash<int, QByteArray> CalendarChecklist::roleNames() const
{
    return { { IsGroupRole, "isGroup" }, { TitleRole, "title" }, { ColorRole, "color" }, { IsOnRole, "isOn" },
        { IsExpandedRole, "isExpanded" } };
}

} // namespace mintaro
