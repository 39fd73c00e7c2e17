#include "bench/LibicalBaseline.h"

#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>

#include <dirent.h>
#include <fcntl.h>
#include <libical/ical.h>
#include <sys/stat.h>
#include <unistd.h>

namespace mintaro::bench {

namespace {

namespace fs = std::filesystem;

icaltimezone *zoneOf(icalproperty *property)
{
    icalparameter *parameter = icalproperty_get_first_parameter(property, ICAL_TZID_PARAMETER);
    if (!parameter)
        return icaltimezone_get_utc_timezone();
    // The library looks for a name from the first to the last.
    static std::map<std::string, icaltimezone *, std::less<>> known;
    const std::string_view name = icalparameter_get_tzid(parameter);
    auto found = known.find(name);
    if (found == known.end())
        found = known.emplace(name, icaltimezone_get_builtin_timezone(std::string(name).c_str())).first;
    return found->second ? found->second : icaltimezone_get_utc_timezone();
}

std::string contentOf(int folder, const char *name)
{
    const int file = ::openat(folder, name, O_RDONLY | O_CLOEXEC);
    struct stat status = {};
    if (file < 0 || ::fstat(file, &status) != 0)
        throw std::runtime_error(name);
    std::string text(static_cast<std::size_t>(status.st_size), '\0');
    if (::read(file, text.data(), text.size()) != status.st_size)
        throw std::runtime_error(name);
    ::close(file);
    return text;
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

std::int64_t countIn(icalcomponent *object, std::chrono::sys_seconds begin, std::chrono::sys_seconds end)
{
    icalcomponent *event = icalcomponent_get_first_component(object, ICAL_VEVENT_COMPONENT);
    return event ? countOf(event, begin.time_since_epoch().count(), end.time_since_epoch().count()) : 0;
}

/// Hands each parsed file of the sub-folders of `root` over to `visit`.
template <typename Visit>
void forEachObject(const fs::path &root, Visit &&visit)
{
    for (const fs::directory_entry &collection : fs::directory_iterator(root)) {
        DIR *folder = ::opendir(collection.path().c_str());
        while (const dirent *entry = folder ? ::readdir(folder) : nullptr) {
            if (!std::string_view(entry->d_name).ends_with(".ics"))
                continue;
            if (icalcomponent *object = icalparser_parse_string(contentOf(::dirfd(folder), entry->d_name).c_str()))
                visit(object);
        }
        if (folder)
            ::closedir(folder);
    }
}

} // namespace

LibicalBaseline::LibicalBaseline(const fs::path &root)
{
    forEachObject(root, [this](icalcomponent *component) { m_components.push_back(component); });
}

LibicalBaseline::~LibicalBaseline()
{
    for (icalcomponent *each : m_components)
        icalcomponent_free(each);
}

std::int64_t LibicalBaseline::countOccurrences(std::chrono::sys_seconds begin, std::chrono::sys_seconds end) const
{
    std::int64_t count = 0;
    for (icalcomponent *each : m_components)
        count += countIn(each, begin, end);
    return count;
}

std::int64_t LibicalBaseline::countOccurrencesBelow(
    const fs::path &root, std::chrono::sys_seconds begin, std::chrono::sys_seconds end)
{
    std::int64_t count = 0;
    forEachObject(root, [&](icalcomponent *component) {
        count += countIn(component, begin, end);
        icalcomponent_free(component);
    });
    return count;
}

} // namespace mintaro::bench
