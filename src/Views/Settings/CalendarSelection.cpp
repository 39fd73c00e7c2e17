#include "Views/Settings/CalendarSelection.h"

namespace mintaro {

CalendarSelection::CalendarSelection(UserDefaults &defaults, QString key)
    : m_defaults(defaults)
    , m_key(std::move(key))
{
}

QSet<QString> CalendarSelection::stored() const
{
    const QStringList identifiers = m_defaults.stringArrayForKey(m_key);
    return QSet<QString>(identifiers.begin(), identifiers.end());
}

bool CalendarSelection::contains(const QString &identifier) const
{
    const QSet<QString> selected = stored();
    return selected.isEmpty() || selected.contains(identifier);
}

void CalendarSelection::set(const QString &identifier, bool isSelected, const QStringList &all)
{
    QSet<QString> selected = stored();
    if (selected.isEmpty() && !isSelected)
        selected = QSet<QString>(all.begin(), all.end());
    if (isSelected)
        selected.insert(identifier);
    else
        selected.remove(identifier);
    // In an order that is the same each time, so that the file changes only where the choice does.
    QStringList identifiers = selected.values();
    identifiers.sort();
    m_defaults.setStringArray(identifiers, m_key);
}

} // namespace mintaro
