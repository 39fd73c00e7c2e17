#include "Platform/EventKit/CalendarObject.h"

#include <algorithm>
#include <iterator>
#include <tuple>

namespace mintaro {

UidKey uidKey(QStringView uid)
{
    UidKey key = 0xcbf29ce484222325;
    for (const QChar unit : uid)
        key = (key ^ unit.unicode()) * 0x100000001b3;
    return key;
}

void mergeExceptions(std::vector<SeriesException> &into, std::vector<SeriesException> exceptions)
{
    std::move(exceptions.begin(), exceptions.end(), std::back_inserter(into));
    // The same moment may be written in several zones.
    const auto place = [](const SeriesException &each) {
        const EventTime &id = each.recurrenceId;
        return std::tuple(id.isZoned(), id.instant(TimeZone()));
    };
    std::stable_sort(into.begin(), into.end(), [&](const SeriesException &a, const SeriesException &b) {
        return std::tuple_cat(place(a), std::tuple(a.sequence)) < std::tuple_cat(place(b), std::tuple(b.sequence));
    });
    // The best of its place is the last one there.
    const auto last = std::unique(into.rbegin(), into.rend(),
        [&](const SeriesException &a, const SeriesException &b) { return place(a) == place(b); });
    into.erase(into.begin(), last.base());
}

} // namespace mintaro
