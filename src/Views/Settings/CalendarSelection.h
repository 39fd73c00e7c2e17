#pragma once

#include "Platform/Foundation/UserDefaults.h"

#include <QSet>

namespace mintaro {

/// Which calendars the user wants to see, as a preference holds it: a list of identifiers, of which none means all.
/// Identifiers of calendars that are gone stay and do no harm.
class CalendarSelection
{
public:
    /// `defaults` must outlive the object.
    CalendarSelection(UserDefaults &defaults, QString key);

    [[nodiscard]] const QString &key() const { return m_key; }
    [[nodiscard]] bool contains(const QString &identifier) const;
    /// `all`: the identifiers of every calendar that there is. To take one out of all makes all the others explicit;
    /// to take out the last one means all again.
    void set(const QString &identifier, bool isSelected, const QStringList &all);

private:
    [[nodiscard]] QSet<QString> stored() const;

    UserDefaults &m_defaults;
    const QString m_key;
};

} // namespace mintaro
