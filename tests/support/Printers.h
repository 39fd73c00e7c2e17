#pragma once

#include "Platform/Foundation/Calendar.h"

#include <QDateTime>
#include <QString>

#include <ostream>

// How values look in a failure's message, and how they are written in tests.

QT_BEGIN_NAMESPACE
inline void PrintTo(const QString &text, std::ostream *stream)
{
    *stream << '"' << text.toStdString() << '"';
}
QT_END_NAMESPACE

namespace mintaro {

/// "2026-03-07 09:30" in a zone, "2026-03-07" at midnight, in UTC where none is given. Fails loudly on any other text.
inline Date at(const char *text, const TimeZone &timeZone = TimeZone())
{
    QDateTime reading = QDateTime::fromString(QLatin1String(text), QStringLiteral("yyyy-MM-dd HH:mm"));
    if (!reading.isValid())
        reading = QDateTime::fromString(QLatin1String(text), QStringLiteral("yyyy-MM-dd"));
    if (!reading.isValid())
        throw std::invalid_argument(text);
    reading.setTimeSpec(Qt::UTC);
    return timeZone.toInstant(LocalTime { std::chrono::seconds { reading.toSecsSinceEpoch() } });
}

inline QString text(Date date)
{
    return QDateTime::fromMSecsSinceEpoch(date.time_since_epoch().count(), Qt::UTC).toString(Qt::ISODate);
}

inline TimeZone zone(const char *name)
{
    return TimeZone::named(QLatin1String(name)).value();
}

} // namespace mintaro
