#include "bench/LibicalBaseline.h"

#include <QDirIterator>
#include <QFile>

#include <libical/ical.h>

namespace mintaro::bench {

namespace {

std::int64_t secondsOf(icaltimetype time)
{
    return icaltime_as_timet_with_zone(time, time.zone ? time.zone : icaltimezone_get_utc_timezone());
}

/// Walks the first rule of an event from its start, as a program does that knows nothing better.
std::int64_t countOf(icalcomponent *event, std::int64_t begin, std::int64_t end)
{
    const icaltimetype start = icalcomponent_get_dtstart(event);
    const std::int64_t length = secondsOf(icalcomponent_get_dtend(event)) - secondsOf(start);
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

LibicalBaseline::LibicalBaseline(const QString &root)
{
    QDirIterator files(root, { QStringLiteral("*.ics") }, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        if (!file.open(QIODevice::ReadOnly))
            continue;
        if (icalcomponent *component = icalparser_parse_string(file.readAll().constData()))
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
