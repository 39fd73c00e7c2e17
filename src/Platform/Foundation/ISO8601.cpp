#include "Platform/Foundation/ISO8601.h"

#include <QDateTime>
#include <QRegularExpression>

namespace mintaro {

std::optional<Date> dateFromIso8601(const QString &text, const TimeZone &timeZone)
{
    static const QRegularExpression basic(
        QStringLiteral("^(\\d{4})(\\d\\d)(\\d\\d)(?:T(\\d\\d)(\\d\\d)(\\d\\d)(Z?))?$"));
    static const QRegularExpression day(QStringLiteral("^\\d{4}-\\d\\d-\\d\\d$"));
    QString extended = text;
    if (const auto parts = basic.match(text); parts.hasMatch()) {
        extended = parts.captured(1) + u'-' + parts.captured(2) + u'-' + parts.captured(3);
        if (!parts.captured(4).isEmpty())
            extended
                += u'T' + parts.captured(4) + u':' + parts.captured(5) + u':' + parts.captured(6) + parts.captured(7);
    }
    if (day.match(extended).hasMatch())
        extended += QLatin1String("T00:00");
    // A reading without an offset is read as UTC: as a local time of Qt it would be one of the system's zone, which may
    // lack it.
    const QDateTime reading = QDateTime::fromString(extended + u'Z', Qt::ISODateWithMs);
    if (reading.isValid())
        return timeZone.toInstant(LocalTime { std::chrono::seconds { reading.toSecsSinceEpoch() } });
    const QDateTime moment = QDateTime::fromString(extended, Qt::ISODateWithMs);
    if (!moment.isValid() || moment.timeSpec() == Qt::LocalTime)
        return std::nullopt;
    return Date { std::chrono::milliseconds { moment.toMSecsSinceEpoch() } };
}

} // namespace mintaro
