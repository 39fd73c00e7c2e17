#include "Platform/EventKit/VTimeZone.h"

#include "Platform/EventKit/ICalValue.h"
#include "Platform/EventKit/PropertyReader.h"
#include "Platform/EventKit/RuleIterator.h"
#include "Platform/EventKit/ZoneResolver.h"

#include <algorithm>

namespace mintaro {

using namespace std::chrono;

namespace {

constexpr local_days kFirstOnset { year { 1900 } / 1 / 1 };
constexpr local_days kLastOnset { year { 2100 } / 1 / 1 };
constexpr std::int64_t kMaximumSteps = 1'000'000;
/// Five a year.
constexpr std::size_t kMaximumTransitions = 1'000;

/// The value of a property, if it has a sense. Times in a VTIMEZONE have no zone but the one that they make.
template <typename Parse>
auto valueOf(const ICalComponent &component, QByteArrayView name, Parse &&parse)
{
    const ICalProperty *property = component.property(name);
    return property ? parse(property->value) : std::nullopt;
}

/// Collects what STANDARD and DAYLIGHT say; both are read in the same way.
class ObservanceReader
{
public:
    explicit ObservanceReader(PropertyReader &reader)
        : m_reader(reader)
    {
    }

    void read(const ICalComponent &observance)
    {
        const auto start = valueOf(observance, "DTSTART", parseTime);
        const auto from = valueOf(observance, "TZOFFSETFROM", parseUtcOffset);
        const auto to = valueOf(observance, "TZOFFSETTO", parseUtcOffset);
        if (!start || !from || !to)
            return;
        m_from = *from;
        m_to = *to;
        add(start->reading);
        observance.forEachProperty("RDATE", [this](const ICalProperty &property) {
            for (const QByteArrayView value : listOf(property)) {
                if (const auto date = parseTime(value))
                    add(date->reading);
            }
        });
        observance.forEachProperty("RRULE", [&](const ICalProperty &property) {
            if (!addRule(property.value.toByteArray(), start->reading))
                m_reader.refuse(property);
        });
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

    /// False for rules that make no zone: some are made to keep programs busy.
    bool addRule(const QByteArray &value, LocalTime start)
    {
        const auto rule = RecurrenceRule::parse(value);
        if (!rule || rule->frequency != RecurrenceRule::Frequency::Yearly)
            return false;
        const LocalTime last = kLastOnset;
        RuleIterator onsets(*rule, start, last, m_budget);
        // Many zones are said to begin in 1601.
        onsets.skipTo(kFirstOnset);
        while (const auto onset = onsets.next()) {
            const LocalTime compared = rule->until && rule->until->isUtc ? *onset - m_from : *onset;
            if (rule->until && compared > rule->until->reading)
                break;
            if (m_transitions.size() > kMaximumTransitions)
                return false;
            if (*onset != start)
                add(*onset);
        }
        return !m_budget.isSpent();
    }

    PropertyReader &m_reader;
    ExpansionBudget m_budget { kMaximumSteps };
    seconds m_from { 0 };
    seconds m_to { 0 };
    seconds m_initialOffset { 0 };
    sys_seconds m_earliest {};
    std::vector<TimeZone::Transition> m_transitions;
};

} // namespace

std::optional<TimeZone> readTimeZone(const ICalComponent &timeZone, PropertyReader &reader)
{
    if (const auto named = resolveZone(PropertyReader::text(timeZone, "X-LIC-LOCATION")))
        return named;
    ObservanceReader observances(reader);
    timeZone.forEachComponent("STANDARD", [&](const ICalComponent &each) { observances.read(each); });
    timeZone.forEachComponent("DAYLIGHT", [&](const ICalComponent &each) { observances.read(each); });
    return observances.zone(PropertyReader::text(timeZone, "TZID"));
}

} // namespace mintaro
