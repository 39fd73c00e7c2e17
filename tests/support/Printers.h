#pragma once

#include "Platform/Foundation/Calendar.h"

#include <QDateTime>
#include <QString>

#include <ostream>
#include <stdexcept>

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
    const QString words = QLatin1String(text);
    // Read as UTC, since the system's zone may lack the reading.
    const QDateTime reading
        = QDateTime::fromString(words + QLatin1String(words.size() > 10 ? ":00Z" : " 00:00:00Z"), Qt::ISODate);
    if (!reading.isValid())
        throw std::invalid_argument(text);
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

/// The name of a row, which is its first member, in the name of its test.
inline constexpr auto kRowName = [](const auto &info) { return std::string(info.param.name); };

} // namespace mintaro
