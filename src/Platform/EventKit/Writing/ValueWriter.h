#pragma once

#include "Platform/EventKit/EventTime.h"
#include "Platform/EventKit/ICalComponent.h"
#include "Platform/EventKit/Writing/ICalNode.h"
#include "Platform/Foundation/Date.h"

#include <QString>

namespace mintaro {

/// Values as RFC 5545 3.3 writes them.

/// A TEXT (3.3.11), escaped; without control characters, with each kind of line break as one.
[[nodiscard]] QByteArray writeText(const QString &text);
/// A DATE (3.3.4).
[[nodiscard]] QByteArray writeDay(LocalTime reading);
/// A DATE-TIME (3.3.5) without a zone.
[[nodiscard]] QByteArray writeReading(LocalTime reading);
/// A DATE-TIME in UTC.
[[nodiscard]] QByteArray writeUtc(std::chrono::sys_seconds instant);
/// A DURATION (3.3.6), with "-" before a negative one; "PT0S" for none.
[[nodiscard]] QByteArray writeDuration(const EventLength &length);
[[nodiscard]] QByteArray writeDuration(std::chrono::seconds length);

/// How a time is written: its form and zone, and the parameters that say so.
class TimeStyle
{
public:
    /// As `property` has it, which reads as `time`.
    TimeStyle(const ICalProperty &property, const EventTime &time);
    [[nodiscard]] static TimeStyle day();
    /// In UTC where the zone is UTC or none that other programs know by its name.
    [[nodiscard]] static TimeStyle inZone(const TimeZone &zone);

    [[nodiscard]] TimeForm form() const { return m_form; }
    [[nodiscard]] const TimeZone &zone() const { return m_zone; }
    [[nodiscard]] const QByteArray &parameters() const { return m_parameters; }
    /// `instant` in this style: of a floating one, or a day, what the viewer's clock shows.
    [[nodiscard]] EventTime time(std::chrono::sys_seconds instant, const TimeZone &viewer) const;
    [[nodiscard]] QByteArray value(LocalTime reading) const;
    [[nodiscard]] ICalNode property(QByteArrayView name, LocalTime reading) const;

private:
    TimeStyle(TimeForm form, TimeZone zone, QByteArray parameters);

    TimeForm m_form;
    TimeZone m_zone;
    QByteArray m_parameters;
};

} // namespace mintaro
