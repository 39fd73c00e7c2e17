#include "Platform/EventKit/Writing/ValueWriter.h"

#include <algorithm>

namespace mintaro {

using namespace std::chrono;

namespace {

bool isUtc(const TimeZone &zone)
{
    return zone == TimeZone() || zone.identifier() == QLatin1String("UTC");
}

/// The TZID as it is written, with its semicolon.
QByteArray zoneParameter(const ICalProperty &property)
{
    const auto tzid = property.parameter("TZID");
    const bool needsQuotes = tzid && std::any_of(tzid->begin(), tzid->end(), [](char c) { return strchr(":;,", c); });
    const QByteArray quote = needsQuotes ? "\"" : "";
    return tzid ? ";TZID=" + quote + tzid->toByteArray() + quote : QByteArray();
}

} // namespace

QByteArray writeText(const QString &text)
{
    QString escaped;
    escaped.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar unit = text[i];
        if (unit == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n')
            continue;
        if (unit == u'\n' || unit == u'\r')
            escaped += QLatin1String("\\n");
        else if (unit == u'\\' || unit == u';' || unit == u',')
            (escaped += u'\\') += unit;
        else if (unit == u'\t' || (unit >= u' ' && unit != QChar(0x7f)))
            escaped += unit;
    }
    return escaped.toUtf8();
}

QByteArray writeDay(LocalTime reading)
{
    const year_month_day day { floor<days>(reading) };
    char text[16];
    qsnprintf(text, sizeof text, "%04d%02u%02u", static_cast<int>(day.year()), static_cast<unsigned>(day.month()),
        static_cast<unsigned>(day.day()));
    return text;
}

QByteArray writeReading(LocalTime reading)
{
    const hh_mm_ss time { reading - floor<days>(reading) };
    char text[16];
    qsnprintf(text, sizeof text, "T%02d%02d%02d", static_cast<int>(time.hours().count()),
        static_cast<int>(time.minutes().count()), static_cast<int>(time.seconds().count()));
    return writeDay(reading) + text;
}

QByteArray writeUtc(sys_seconds instant)
{
    return writeReading(LocalTime { instant.time_since_epoch() }) + 'Z';
}

QByteArray writeDuration(const EventLength &length)
{
    const auto part
        = [](auto count, char unit) { return count == 0 ? QByteArray() : QByteArray::number(count) + unit; };
    const bool isWeeks
        = length.nominal.count() != 0 && length.nominal.count() % 7 == 0 && length.exact == seconds { 0 };
    if (isWeeks)
        return 'P' + part(length.nominal.count() / 7, 'W');
    const hh_mm_ss time { length.exact };
    const QByteArray clock = part(static_cast<qlonglong>(time.hours().count()), 'H')
        + part(static_cast<qlonglong>(time.minutes().count()), 'M')
        + part(static_cast<qlonglong>(time.seconds().count()), 'S');
    const QByteArray nominal = part(static_cast<qlonglong>(length.nominal.count()), 'D');
    if (nominal.isEmpty() && clock.isEmpty())
        return "PT0S";
    return 'P' + nominal + (clock.isEmpty() ? clock : 'T' + clock);
}

QByteArray writeDuration(seconds length)
{
    // Whole days and weeks as alarms usually have them: those are the same length as seconds only where no clock
    // changes, which for an alarm is what people mean.
    const seconds size = abs(length);
    const bool isDays = size % days { 1 } == seconds { 0 };
    const QByteArray text
        = writeDuration(isDays ? EventLength { floor<days>(size), seconds { 0 } } : EventLength { days { 0 }, size });
    return length < seconds { 0 } ? '-' + text : text;
}

TimeStyle::TimeStyle(TimeForm form, TimeZone zone, QByteArray parameters)
    : m_form(form)
    , m_zone(std::move(zone))
    , m_parameters(std::move(parameters))
{
}

TimeStyle::TimeStyle(const ICalProperty &property, const EventTime &time)
    : m_form(time.form)
    , m_zone(time.zone)
{
    if (time.form == TimeForm::Day)
        m_parameters = ";VALUE=DATE";
    else if (time.isZoned() && !isUtc(time.zone))
        m_parameters = zoneParameter(property);
}

TimeStyle TimeStyle::day()
{
    return { TimeForm::Day, TimeZone(), ";VALUE=DATE" };
}

TimeStyle TimeStyle::inZone(const TimeZone &zone)
{
    if (isUtc(zone) || !zone.isNamed())
        return { TimeForm::Zoned, TimeZone(), {} };
    return { TimeForm::Zoned, zone, ";TZID=" + zone.identifier().toUtf8() };
}

EventTime TimeStyle::time(sys_seconds instant, const TimeZone &viewer) const
{
    const LocalTime reading = (m_form == TimeForm::Zoned ? m_zone : viewer).toLocal(instant);
    return { m_form == TimeForm::Day ? LocalTime { floor<days>(reading) } : reading, m_form, m_zone };
}

QByteArray TimeStyle::value(LocalTime reading) const
{
    if (m_form == TimeForm::Day)
        return writeDay(reading);
    // A zone with a fixed name for UTC may say so by a TZID; what has none and is zoned is UTC.
    const bool isUtcForm = m_form == TimeForm::Zoned && m_parameters.isEmpty();
    return isUtcForm ? writeReading(reading) + 'Z' : writeReading(reading);
}

ICalNode TimeStyle::property(QByteArrayView name, LocalTime reading) const
{
    return ICalNode::makeProperty(name, m_parameters, value(reading));
}

} // namespace mintaro
