#include "Views/WorldClock/TimezonePickerViewController.h"

#include "Platform/Foundation/TextMatcher.h"

namespace mintaro {

TimezonePickerViewController::TimezonePickerViewController(const Environment &environment)
    : m_environment(environment)
    , m_timezones(TimeZone::knownTimeZoneIdentifiers())
    , m_filteredTimezones(m_timezones)
{
}

void TimezonePickerViewController::setSearchText(const QString &text)
{
    if (std::exchange(m_searchText, text) == text)
        return;
    const TextMatcher matcher(text, m_environment.locale());
    beginResetModel();
    m_filteredTimezones.clear();
    std::ranges::copy_if(m_timezones, std::back_inserter(m_filteredTimezones),
        [&](const QString &identifier) { return matcher.isIn(identifier); });
    endResetModel();
    Q_EMIT searchTextChanged();
}

void TimezonePickerViewController::select(int row)
{
    Q_EMIT selected(QString(m_filteredTimezones.at(row)));
    Q_EMIT dismissed();
}

void TimezonePickerViewController::cancel()
{
    Q_EMIT dismissed();
}

int TimezonePickerViewController::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_filteredTimezones.size());
}

QVariant TimezonePickerViewController::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const QString &identifier = m_filteredTimezones[index.row()];
    if (role == TitleRole)
        return QString(identifier).replace(u'_', u' ');
    const auto zone = role == AbbreviationRole ? TimeZone::named(identifier) : std::nullopt;
    return zone ? zone->abbreviation(std::chrono::floor<std::chrono::seconds>(m_environment.now())) : QVariant();
}

QHash<int, QByteArray> TimezonePickerViewController::roleNames() const
{
    return { { TitleRole, "title" }, { AbbreviationRole, "abbreviation" } };
}

} // namespace mintaro
