#include "Platform/EventKit/Index/Packing.h"

#include <algorithm>

namespace mintaro {

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
    std::size_t number = 0;
    get(number);
    if (number < m_zones.size()) {
        zone = m_zones[number];
        return;
    }
    QString identifier;
    bool isNamed = false;
    (*this)(identifier, isNamed);
    if (isNamed) {
        const auto named = TimeZone::named(identifier);
        m_failed = m_failed || !named;
        zone = named.value_or(TimeZone());
    } else {
        std::chrono::seconds initialOffset { 0 };
        std::int64_t count = 0;
        (*this)(initialOffset, count);
        std::vector<TimeZone::Transition> transitions;
        while (--count >= 0 && !m_failed) {
            TimeZone::Transition &each = transitions.emplace_back();
            (*this)(each.at, each.offset);
        }
        zone = TimeZone::custom(identifier, initialOffset, std::move(transitions));
    }
    m_zones.push_back(zone);
}

} // namespace mintaro
