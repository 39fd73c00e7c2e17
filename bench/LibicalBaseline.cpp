#include "bench/LibicalBaseline.h"

#include <fstream>
#include <string>

#include <libical/ical.h>

namespace mintaro::bench {

namespace {

namespace fs = std::filesystem;

icaltimezone *zoneOf(icalproperty *property)
{
    icalparameter *parameter = icalproperty_get_first_parameter(property, ICAL_TZID_PARAMETER);
    icaltimezone *zone = parameter ? icaltimezone_get_builtin_timezone(icalparameter_get_tzid(parameter)) : nullptr;
    return zone ? zone : icaltimezone_get_utc_timezone();
}

std::int64_t lengthOf(icalcomponent *event, icaltimetype start)
{
    if (icalproperty *duration = icalcomponent_get_first_property(event, ICAL_DURATION_PROPERTY))
        return icaldurationtype_as_int(icalproperty_get_duration(duration));
    return start.is_date != 0 ? 86'400 : 0;
}

/// Walks the first rule of an event from its start, as a program does that knows nothing better.
std::int64_t countOf(icalcomponent *event, std::int64_t begin, std::int64_t end)
{
    icalproperty *property = icalcomponent_get_first_property(event, ICAL_DTSTART_PROPERTY);
    const icaltimetype start = icalproperty_get_dtstart(property);
    icaltimezone *const zone = zoneOf(property);
    const std::int64_t length = lengthOf(event, start);
    const auto secondsOf = [zone](icaltimetype time) { return icaltime_as_timet_with_zone(time, zone); };
    const auto overlaps = [&](std::int64_t at) { return at < end && at + length > begin; };
    icalproperty *rule = icalcomponent_get_first_property(event, ICAL_RRULE_PROPERTY);
    if (!rule)
        return overlaps(secondsOf(start)) ? 1 : 0;
    std::int64_t count = 0;
    icalrecur_iterator *iterator = icalrecur_iterator_new(icalproperty_get_rrule(rule), start);
    for (icaltimetype next = icalrecur_iterator_next(iterator); !icaltime_is_null_time(next) && secondsOf(next) < end;
         next = icalrecur_iterator_next(iterator))
        count += overlaps(secondsOf(next)) ? 1 : 0;
    icalrecur_iterator_free(iterator);
    return count;
}

} // namespace

LibicalBaseline::LibicalBaseline(const fs::path &root)
{
    for (const fs::directory_entry &entry : fs::recursive_directory_iterator(root)) {
        if (entry.path().extension() != ".ics")
            continue;
        std::ifstream file(entry.path(), std::ios::binary);
        std::string text(entry.file_size(), '\0');
        file.read(text.data(), static_cast<std::streamsize>(text.size()));
        if (icalcomponent *component = icalparser_parse_string(text.c_str()))
            m_components.push_back(component);
    }
}

LibicalBaseline::~LibicalBaseline()
{
    for (icalcomponent *each : m_components)
        icalcomponent_free(each);
}

std::int64_t LibicalBaseline::countOccurrences(std::chrono::sys_seconds begin, std::chrono::sys_seconds end) const
{
    std::int64_t count = 0;
    for (icalcomponent *each : m_components) {
        if (icalcomponent *event = icalcomponent_get_first_component(each, ICAL_VEVENT_COMPONENT))
            count += countOf(event, begin.time_since_epoch().count(), end.time_since_epoch().count());
    }
    return count;
}

} // namespace mintaro::bench
