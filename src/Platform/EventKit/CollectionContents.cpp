#include "Platform/EventKit/CollectionContents.h"

#include <QHash>

namespace mintaro {

using namespace std::chrono;

namespace {

/// How far a window is made wider than the query, so that paging by a month or two needs no new one.
constexpr days kMargin { 62 };
constexpr std::size_t kKeptWindows = 3;
/// A reading and its moment are less than this apart in any zone.
constexpr seconds kZoneReach = days { 2 };

sys_seconds toInstant(std::int64_t count)
{
    return sys_seconds { seconds { count } };
}

/// Calls `change` with each event and reminder of an object.
template <typename Change>
void forEachItem(CalendarObject &object, Change &&change)
{
    for (auto &series : object.events) {
        if (series.master)
            change(series.master);
        if (series.recurrence) {
            for (auto &exception : series.recurrence->exceptions)
                change(exception.item);
        }
    }
    for (auto &reminder : object.reminders)
        change(reminder);
}

} // namespace

CollectionContents::Occurrences::Occurrences(std::vector<Occurrence> all)
{
    const auto firstCivil = std::stable_partition(
        all.begin(), all.end(), [](const Occurrence &each) { return each.item->start.isZoned(); });
    civil = IntervalIndex<Occurrence>({ std::make_move_iterator(firstCivil), std::make_move_iterator(all.end()) });
    all.erase(firstCivil, all.end());
    zoned = IntervalIndex<Occurrence>(std::move(all));
}

void CollectionContents::Occurrences::search(const Query &query, const Found &found) const
{
    const auto take = [&](const Occurrence &occurrence, sys_seconds start, sys_seconds end) {
        if (start < query.end && (end > query.begin || start >= query.begin))
            found(occurrence, start, end);
    };
    const sys_seconds begin = floor<seconds>(query.begin);
    const sys_seconds end = ceil<seconds>(query.end);
    zoned.overlapping(begin.time_since_epoch().count(), end.time_since_epoch().count(),
        [&](const Occurrence &each) { take(each, toInstant(each.start), toInstant(each.end)); });
    const auto moment = [&](std::int64_t reading) { return query.viewer.toInstant(LocalTime { seconds { reading } }); };
    civil.overlapping((begin - kZoneReach).time_since_epoch().count(), (end + kZoneReach).time_since_epoch().count(),
        [&](const Occurrence &each) { take(each, moment(each.start), moment(each.end)); });
}

const ObjectRevision *CollectionContents::revision(const QString &name) const
{
    const auto found = m_objects.find(name);
    return found == m_objects.end() ? nullptr : &found->second.revision;
}

QStringList CollectionContents::names() const
{
    QStringList names;
    for (const auto &[name, object] : m_objects)
        names.append(name);
    return names;
}

void CollectionContents::set(const ObjectState &state, CalendarObject content)
{
    forEachItem(content, [&state](auto &item) {
        if (item->uid.isEmpty())
            item->uid = state.name;
    });
    content.complaints.clear();
    m_objects[state.name] = { state.revision, std::move(content), false };
}

void CollectionContents::remove(const QString &name)
{
    m_objects.erase(name);
}

void CollectionContents::assignIdentifiers(const Report &duplicate)
{
    QHash<QString, const StoredObject *> owners;
    for (auto &[name, object] : m_objects) {
        bool isDuplicate = false;
        forEachItem(object.content, [&, &objectName = name, &own = object](auto &item) {
            auto &owner = owners[item->uid];
            if (!owner)
                owner = &own;
            const QString suffix = owner == &own ? QString() : u'/' + objectName;
            if (item->identifierSuffix == suffix)
                return;
            // The present item may be in callers' hands: it stays as it is.
            item = std::make_shared<std::decay_t<decltype(*item)>>(*item);
            item->identifierSuffix = suffix;
            isDuplicate = isDuplicate || !suffix.isEmpty();
        });
        if (isDuplicate)
            duplicate(name);
    }
}

void CollectionContents::rebuild(const Report &duplicate)
{
    assignIdentifiers(duplicate);
    m_windows.clear();
    m_series.clear();
    m_reminders.clear();
    std::vector<Occurrence> single;
    std::uint32_t order = 0;
    for (auto &[name, object] : m_objects) {
        for (const EventSeries &series : object.content.events) {
            if (series.recurrence) {
                m_series.push_back({ &series, &name, &object, order });
            } else if (!series.master->isCancelled) {
                single.push_back(singleOccurrence(series.master));
                single.back().order = order;
            }
            ++order;
        }
        m_reminders.insert(m_reminders.end(), object.content.reminders.begin(), object.content.reminders.end());
    }
    m_holdsEvents = order > 0;
    m_single = Occurrences(std::move(single));
}

void CollectionContents::events(const Query &query, ExpansionBudget &budget, const Found &found, const Report &refused)
{
    m_single.search(query, found);
    if (!m_series.empty())
        expanded(query, budget, refused).search(query, found);
}

const CollectionContents::Occurrences &CollectionContents::expanded(
    const Query &query, ExpansionBudget &budget, const Report &refused)
{
    const auto covers
        = [&](const ExpandedWindow &each) { return each.window.begin <= query.begin && query.end <= each.window.end; };
    const auto known = std::find_if(m_windows.begin(), m_windows.end(), covers);
    if (known != m_windows.end()) {
        std::rotate(m_windows.begin(), known, known + 1);
        return m_windows.front().occurrences;
    }
    const ExpansionWindow window { floor<seconds>(query.begin) - kMargin, ceil<seconds>(query.end) + kMargin };
    std::vector<Occurrence> all;
    for (const Series &each : m_series) {
        const std::size_t first = all.size();
        const ExpansionResult result = expandSeries(*each.series, window, budget, all);
        for (std::size_t i = first; i < all.size(); ++i)
            all[i].order = each.order;
        if (result == ExpansionResult::RuleRefused && !std::exchange(each.object->isRefused, true))
            refused(*each.name);
    }
    m_windows.push_front({ window, Occurrences(std::move(all)) });
    if (m_windows.size() > kKeptWindows)
        m_windows.pop_back();
    return m_windows.front().occurrences;
}

} // namespace mintaro
