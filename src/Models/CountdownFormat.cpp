#include "Models/CountdownFormat.h"

#include <QCoreApplication>

namespace mintaro {

QString rawValue(CountdownFormat format)
{
    switch (format) {
    case CountdownFormat::Relative:
        return QStringLiteral("relative");
    case CountdownFormat::Compact:
        return QStringLiteral("compact");
    case CountdownFormat::Absolute:
        return QStringLiteral("absolute");
    }
    return {};
}

QString displayName(CountdownFormat format)
{
    switch (format) {
    case CountdownFormat::Relative:
        return qtTrId("countdown.format.relative");
    case CountdownFormat::Compact:
        return qtTrId("countdown.format.compact");
    case CountdownFormat::Absolute:
        return qtTrId("countdown.format.absolute");
    }
    return {};
}

std::optional<CountdownFormat> countdownFormatFromRawValue(const QString &text)
{
    for (const CountdownFormat format : kAllCountdownFormats) {
        if (rawValue(format) == text)
            return format;
    }
    return std::nullopt;
}

} // namespace mintaro
