#include "bench/LibicalBaseline.h"

#include <QDirIterator>
#include <QFile>

#include <libical/ical.h>

namespace mintaro::bench {

namespace {

icaltimetype timeOf(std::chrono::sys_seconds instant)
{
    return icaltime_from_timet_with_zone(
        static_cast<time_t>(instant.time_since_epoch().count()), 0, icaltimezone_get_utc_timezone());
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
    const auto add = [](icalcomponent *, icaltime_span *, void *data) { ++*static_cast<std::int64_t *>(data); };
    for (icalcomponent *each : m_components) {
        if (icalcomponent *event = icalcomponent_get_first_component(each, ICAL_VEVENT_COMPONENT))
            icalcomponent_foreach_recurrence(event, timeOf(begin), timeOf(end), add, &count);
    }
    return count;
}

} // namespace mintaro::bench
