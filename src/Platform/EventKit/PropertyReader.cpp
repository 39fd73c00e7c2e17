#include "Platform/EventKit/PropertyReader.h"

#include "Platform/EventKit/ICalendarText.h"
#include "Platform/EventKit/VTimeZone.h"
#include "Platform/EventKit/ZoneResolver.h"

namespace mintaro {

using namespace std::chrono;

namespace {

std::optional<LocalTime> readingOf(const icaltimetype &value)
{
    const year_month_day day { year { value.year }, month { static_cast<unsigned>(value.month) },
        std::chrono::day { static_cast<unsigned>(value.day) } };
    if (!day.ok() || value.year < 1 || value.year > 9999)
        return std::nullopt;
    LocalTime reading = local_days { day };
    if (!value.is_date)
        reading += hours { value.hour } + minutes { value.minute } + seconds { value.second };
    return reading;
}

} // namespace

PropertyReader::PropertyReader(icalcomponent *root)
    : m_root(root)
{
}

void PropertyReader::complain(const QString &text)
{
    if (!m_complaints.contains(text))
        m_complaints.append(text);
}

QString PropertyReader::text(icalcomponent *component, icalproperty_kind kind) const
{
    icalproperty *property = icalcomponent_get_first_property(component, kind);
    icalvalue *value = property ? icalproperty_get_value(property) : nullptr;
    if (!value)
        return {};
    switch (icalvalue_isa(value)) {
    case ICAL_TEXT_VALUE:
        return decodeText(icalvalue_get_text(value));
    case ICAL_URI_VALUE:
        return decodeText(icalvalue_get_uri(value));
    case ICAL_X_VALUE:
        return decodeText(icalvalue_get_x(value));
    default:
        return decodeText(rawValue(property).constData());
    }
}

std::optional<EventTime> PropertyReader::time(icalcomponent *component, icalproperty_kind kind)
{
    icalproperty *property = icalcomponent_get_first_property(component, kind);
    return property ? time(property) : std::nullopt;
}

std::optional<EventTime> PropertyReader::time(icalproperty *property)
{
    icalvalue *value = icalproperty_get_value(property);
    if (!value)
        return std::nullopt;
    const bool isDate = icalvalue_isa(value) == ICAL_DATE_VALUE;
    return time(property, isDate ? icalvalue_get_date(value) : icalvalue_get_datetime(value));
}

std::optional<EventTime> PropertyReader::time(icalproperty *property, const icaltimetype &value)
{
    const auto reading = readingOf(value);
    if (!reading) {
        complain(QStringLiteral("%1 is no date").arg(QString::fromLatin1(icalproperty_get_property_name(property))));
        return std::nullopt;
    }
    if (value.is_date)
        return EventTime { *reading, TimeForm::Day, {} };
    if (icaltime_is_utc(value))
        return EventTime { *reading, TimeForm::Zoned, {} };
    icalparameter *parameter = icalproperty_get_first_parameter(property, ICAL_TZID_PARAMETER);
    if (!parameter)
        return EventTime { *reading, TimeForm::Floating, {} };
    const auto own = zone(decodeText(icalparameter_get_tzid(parameter)));
    return own ? EventTime { *reading, TimeForm::Zoned, *own } : EventTime { *reading, TimeForm::Floating, {} };
}

std::optional<TimeZone> PropertyReader::zone(const QString &tzid)
{
    if (const auto known = m_zones.find(tzid); known != m_zones.end())
        return known->second;
    auto zone = resolveZone(tzid);
    if (!zone)
        zone = readTimeZone(m_root, tzid);
    if (!zone)
        complain(QStringLiteral("unknown time zone \"%1\", read as local time").arg(tzid));
    return m_zones[tzid] = zone;
}

std::optional<EventLength> readLength(const icaldurationtype &duration)
{
    if (duration.is_neg || icaldurationtype_is_bad_duration(duration))
        return std::nullopt;
    return EventLength { days { duration.days } + weeks { duration.weeks },
        hours { duration.hours } + minutes { duration.minutes } + seconds { duration.seconds } };
}

QByteArray rawValue(icalproperty *property)
{
    const ical::TextHandle text(icalproperty_get_value_as_string_r(property));
    return QByteArray(text.get());
}

bool isDamaged(icalcomponent *component)
{
    if (icalcomponent_get_first_property(component, ICAL_XLICERROR_PROPERTY))
        return true;
    bool damaged = false;
    ical::forEachComponent(
        component, ICAL_ANY_COMPONENT, [&damaged](icalcomponent *child) { damaged = damaged || isDamaged(child); });
    return damaged;
}

} // namespace mintaro
