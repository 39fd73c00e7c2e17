#include "Extensions/Countdown.h"

#include <QCoreApplication>

#include <optional>

namespace mintaro {

namespace {

struct Remaining
{
    int minutes;
    int hours;
    int rest;
};

/// Empty once the moment has come.
std::optional<Remaining> remaining(Date moment, Date now)
{
    if (moment <= now)
        return std::nullopt;
    const auto minutes = static_cast<int>(std::chrono::floor<std::chrono::minutes>(moment - now).count());
    return Remaining { minutes, minutes / 60, minutes % 60 };
}

} // namespace

QString relativeCountdown(Date moment, Date now)
{
    const auto left = remaining(moment, now);
    if (!left)
        return qtTrId("countdown.now");
    if (left->minutes <= 59)
        return qtTrId("countdown.relative.minutes %lld").arg(left->minutes);
    if (left->rest == 0)
        return qtTrId("countdown.relative.hours %lld").arg(left->hours);
    return qtTrId("countdown.relative.hoursMinutes %lld %lld").arg(left->hours).arg(left->rest);
}

QString compactCountdown(Date moment, Date now)
{
    const auto left = remaining(moment, now);
    if (!left)
        return qtTrId("countdown.now");
    if (left->minutes <= 59)
        return QStringLiteral("%1m").arg(left->minutes);
    if (left->rest == 0)
        return QStringLiteral("%1h").arg(left->hours);
    return QStringLiteral("%1h%2").arg(left->hours).arg(left->rest);
}

} // namespace mintaro
