#include "Platform/EventKit/PropertyReader.h"

#include "Platform/EventKit/ICalValue.h"
#include "Platform/EventKit/VTimeZone.h"
#include "Platform/EventKit/ZoneResolver.h"

#include <algorithm>

namespace mintaro {

using namespace std::chrono;

namespace {

constexpr qsizetype kLongestExcerpt = 100;
constexpr std::size_t kMaximumOwnZones = 100;

} // namespace

void PropertyReader::refuse(const ICalProperty &property)
{
    m_hasRefused = true;
    const QString value = decodeText(property.value.first(std::min(property.value.size(), kLongestExcerpt)));
    complain(QStringLiteral("%1 without sense: \"%2\"").arg(QString::fromLatin1(property.name), value));
}

QString PropertyReader::text(const ICalComponent &component, QByteArrayView name)
{
    const ICalProperty *property = component.property(name);
    return property ? readText(*property) : QString();
}

std::optional<EventTime> PropertyReader::time(const ICalComponent &component, QByteArrayView name)
{
    const ICalProperty *property = component.property(name);
    return property ? time(*property, property->value) : std::nullopt;
}

std::optional<EventTime> PropertyReader::time(const ICalProperty &property, QByteArrayView value)
{
    const std::optional<ICalTime> read = parseTime(value);
    if (!read) {
        refuse(property);
        return std::nullopt;
    }
    // A day that says so may come with its midnight.
    const bool isMidnight = read->reading == floor<days>(read->reading);
    if (read->isDate || (isMidnight && property.parameter("VALUE") == QByteArrayView("DATE")))
        return EventTime { read->reading, TimeForm::Day, {} };
    if (read->isUtc)
        return EventTime { read->reading, TimeForm::Zoned, {} };
    const QString tzid = readParameter(property, "TZID");
    const auto own = tzid.isEmpty() ? std::nullopt : zone(tzid);
    return own ? EventTime { read->reading, TimeForm::Zoned, *own }
               : EventTime { read->reading, TimeForm::Floating, {} };
}

std::optional<EventLength> PropertyReader::length(const ICalComponent &component)
{
    const ICalProperty *property = component.property("DURATION");
    return property ? length(*property, property->value) : std::nullopt;
}

std::optional<EventLength> PropertyReader::length(const ICalProperty &property, QByteArrayView value)
{
    const std::optional<ICalDuration> read = parseDuration(value);
    if (!read || read->isNegative) {
        refuse(property);
        return std::nullopt;
    }
    return read->length;
}

std::optional<TimeZone> PropertyReader::zone(const QString &tzid)
{
    if (const auto known = m_zones.find(tzid); known != m_zones.end())
        return known->second;
    auto zone = resolveZone(tzid);
    if (!zone && !m_ownZones) {
        m_ownZones.emplace();
        collectZones(m_root);
    }
    if (!zone) {
        if (const auto own = m_ownZones->find(tzid.trimmed()); own != m_ownZones->end())
            zone = readTimeZone(*own->second, *this);
        else
            zone = zoneOfOffset(tzid);
    }
    if (!zone)
        complain(QStringLiteral("unknown time zone \"%1\", read as local time").arg(tzid.left(kLongestExcerpt)));
    return m_zones[tzid] = zone;
}

/// Of more than anyone needs the rest is unknown: each costs its time to read.
void PropertyReader::collectZones(const ICalComponent &parent)
{
    for (const ICalComponent &child : parent.components) {
        if (child.name == "VCALENDAR")
            collectZones(child);
        else if (child.name == "VTIMEZONE" && m_ownZones->size() < kMaximumOwnZones)
            m_ownZones->try_emplace(text(child, "TZID").trimmed(), &child);
    }
}

std::vector<QByteArrayView> listOf(const ICalProperty &property)
{
    std::vector<QByteArrayView> values;
    const auto isSeparator = [](char byte) { return byte == ',' || byte == ';'; };
    const auto end = property.value.end();
    for (auto begin = property.value.begin(); begin != end;) {
        const auto separator = std::find_if(begin, end, isSeparator);
        if (separator != begin)
            values.emplace_back(begin, separator);
        begin = separator == end ? end : separator + 1;
    }
    return values;
}

} // namespace mintaro
