#include "Platform/EventKit/VTimeZone.h"

#include "Platform/EventKit/ICalendarText.h"
#include "Platform/EventKit/PropertyReader.h"
#include "Platform/EventKit/RuleIterator.h"
#include "Platform/EventKit/ZoneResolver.h"

#include <algorithm>

namespace mintaro {

using namespace std::chrono;

namespace {

constexpr local_days kLastOnset { year { 2100 } / 1 / 1 };
constexpr std::int64_t kMaximumSteps = 1'000'000;

icalcomponent *findTimeZone(icalcomponent *parent, const QString &tzid)
{
    icalcomponent *found = nullptr;
    ical::forEachComponent(parent, ICAL_ANY_COMPONENT, [&](icalcomponent *child) {
        const icalcomponent_kind kind = icalcomponent_isa(child);
        if (found)
            return;
        if (kind == ICAL_VCALENDAR_COMPONENT) {
            found = findTimeZone(child, tzid);
        } else if (kind == ICAL_VTIMEZONE_COMPONENT) {
            icalproperty *name = icalcomponent_get_first_property(child, ICAL_TZID_PROPERTY);
            if (name && decodeText(icalproperty_get_tzid(name)) == tzid)
                found = child;
        }
    });
    return found;
}

std::optional<TimeZone> namedLocation(icalcomponent *timeZone)
{
    std::optional<TimeZone> zone;
    ical::forEachProperty(timeZone, ICAL_X_PROPERTY, [&zone](icalproperty *property) {
        if (qstricmp(icalproperty_get_x_name(property), "X-LIC-LOCATION") == 0)
            zone = resolveZone(decodeText(icalproperty_get_x(property)));
    });
    return zone;
}

/// Collects what STANDARD and DAYLIGHT say; both are read in the same way.
class ObservanceReader
{
public:
    explicit ObservanceReader(icalcomponent *root)
        : m_reader(root)
    {
    }

    void read(icalcomponent *observance)
    {
        const auto start = m_reader.time(observance, ICAL_DTSTART_PROPERTY);
        icalproperty *from = icalcomponent_get_first_property(observance, ICAL_TZOFFSETFROM_PROPERTY);
        icalproperty *to = icalcomponent_get_first_property(observance, ICAL_TZOFFSETTO_PROPERTY);
        if (!start || !from || !to)
            return;
        m_from = seconds { icalproperty_get_tzoffsetfrom(from) };
        m_to = seconds { icalproperty_get_tzoffsetto(to) };
        add(start->reading);
        ical::forEachProperty(observance, ICAL_RDATE_PROPERTY, [this](icalproperty *property) {
            if (const auto date = m_reader.time(property, icalproperty_get_rdate(property).time))
                add(date->reading);
        });
        ical::forEachProperty(observance, ICAL_RRULE_PROPERTY,
            [&](icalproperty *property) { addRule(rawValue(property), start->reading); });
    }

    std::optional<TimeZone> zone(const QString &tzid)
    {
        if (m_transitions.empty())
            return std::nullopt;
        std::stable_sort(
            m_transitions.begin(), m_transitions.end(), [](const auto &a, const auto &b) { return a.at < b.at; });
        return TimeZone::custom(tzid, m_initialOffset, m_transitions);
    }

private:
    void add(LocalTime onset)
    {
        const sys_seconds at { onset.time_since_epoch() - m_from };
        if (m_transitions.empty() || at < m_earliest) {
            m_earliest = at;
            m_initialOffset = m_from;
        }
        m_transitions.push_back({ at, m_to });
    }

    /// Other rules than yearly ones make no zone; some are made to keep programs busy.
    void addRule(const QByteArray &value, LocalTime start)
    {
        const auto rule = RecurrenceRule::parse(value);
        if (!rule || rule->frequency != RecurrenceRule::Frequency::Yearly)
            return;
        const LocalTime last = kLastOnset;
        RuleIterator onsets(*rule, start, last, m_budget);
        while (const auto onset = onsets.next()) {
            const LocalTime compared = rule->until && rule->until->isUtc ? *onset - m_from : *onset;
            if (rule->until && compared > rule->until->reading)
                break;
            if (*onset != start)
                add(*onset);
        }
    }

    PropertyReader m_reader;
    ExpansionBudget m_budget { kMaximumSteps };
    seconds m_from { 0 };
    seconds m_to { 0 };
    seconds m_initialOffset { 0 };
    sys_seconds m_earliest {};
    std::vector<TimeZone::Transition> m_transitions;
};

} // namespace

std::optional<TimeZone> readTimeZone(icalcomponent *root, const QString &tzid)
{
    icalcomponent *timeZone = findTimeZone(root, tzid);
    if (!timeZone)
        return std::nullopt;
    if (const auto named = namedLocation(timeZone))
        return named;
    ObservanceReader reader(root);
    ical::forEachComponent(timeZone, ICAL_XSTANDARD_COMPONENT, [&](icalcomponent *each) { reader.read(each); });
    ical::forEachComponent(timeZone, ICAL_XDAYLIGHT_COMPONENT, [&](icalcomponent *each) { reader.read(each); });
    return reader.zone(tzid);
}

} // namespace mintaro
