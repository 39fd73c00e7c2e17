#include "Platform/EventKit/Index/Packing.h"

#include <algorithm>

namespace mintaro {

namespace {

/// TimeZone::named, quick for the zone that was asked for last: mostly it is the same again.
const std::optional<TimeZone> &zoneNamed(QStringView identifier)
{
    thread_local std::optional<TimeZone> last;
    if (!last || last->identifier() != identifier)
        last = TimeZone::named(identifier.toString());
    return last;
}

} // namespace

void PackWriter::put(const TimeZone &zone)
{
    const auto known = std::find(m_zones.begin(), m_zones.end(), zone);
    put(known - m_zones.begin());
    if (known != m_zones.end())
        return;
    m_zones.push_back(zone);
    put(zone.identifier());
    const bool isNamed = zone.isNamed();
    put(isNamed);
    if (isNamed)
        return;
    put(zone.initialOffset());
    put(zone.transitions().size());
    for (const TimeZone::Transition &each : zone.transitions()) {
        put(each.at);
        put(each.offset);
    }
}

void PackReader::get(TimeZone &zone)
{
    qsizetype number = 0;
    get(number);
    if (number >= 0 && number < m_zones.size()) {
        zone = m_zones[number];
        return;
    }
    const QStringView identifier = text();
    bool isNamed = false;
    get(isNamed);
    if (isNamed) {
        const std::optional<TimeZone> &named = zoneNamed(identifier);
        m_failed = m_failed || !named;
        zone = named.value_or(TimeZone());
    } else {
        std::chrono::seconds initialOffset { 0 };
        std::int64_t count = 0;
        (*this)(initialOffset, count);
        std::vector<TimeZone::Transition> transitions;
        for (; count > 0 && !m_failed; --count) {
            TimeZone::Transition &each = transitions.emplace_back();
            (*this)(each.at, each.offset);
        }
        zone = TimeZone::custom(identifier.toString(), initialOffset, std::move(transitions));
    }
    m_zones.push_back(zone);
}

} // namespace mintaro
