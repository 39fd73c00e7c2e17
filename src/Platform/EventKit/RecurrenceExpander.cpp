#include "Platform/EventKit/RecurrenceExpander.h"

#include <algorithm>

namespace mintaro {

using namespace std::chrono;

namespace {

/// A rule denser than one occurrence in five minutes says nothing to people.
constexpr std::int64_t kMaximumPerDay = 300;
constexpr std::int64_t kMaximumExtra = 1'000;
constexpr std::int64_t kMaximumStepsPerSeries = 2'000'000;

std::int64_t count(LocalTime reading)
{
    return reading.time_since_epoch().count();
}

std::int64_t count(sys_seconds instant)
{
    return instant.time_since_epoch().count();
}

/// What an item's kind counts its times by: moments, or readings.
std::int64_t timeOf(const EventTime &time)
{
    return time.isZoned() ? count(time.zone.toInstant(time.reading)) : count(time.reading);
}

Occurrence makeOccurrence(const std::shared_ptr<const EventItem> &item, LocalTime reading, const EventLength &length)
{
    EventTime start = item->start;
    start.reading = reading;
    EventTime nominalEnd = start;
    nominalEnd.reading += length.nominal;
    Occurrence occurrence;
    occurrence.start = timeOf(start);
    occurrence.end = std::max(occurrence.start, timeOf(nominalEnd) + length.exact.count());
    occurrence.original = occurrence.start;
    occurrence.originalIsZoned = start.isZoned();
    occurrence.item = item;
    return occurrence;
}

/// One start that the series gives. `key` tells it from the others: the moment in a zoned series, else the reading.
struct Start
{
    std::int64_t key;
    LocalTime reading;
    std::optional<EventLength> length;
};

/// Starts named by EXDATE, EXRULE or RECURRENCE-ID. A DATE in a series with times names all of its day.
class StartSet
{
public:
    void add(std::int64_t key) { m_keys.push_back(key); }
    void add(local_days day) { m_days.push_back(day); }
    void prepare()
    {
        std::sort(m_keys.begin(), m_keys.end());
        std::sort(m_days.begin(), m_days.end());
    }
    [[nodiscard]] bool contains(const Start &start) const
    {
        return std::binary_search(m_keys.begin(), m_keys.end(), start.key)
            || std::binary_search(m_days.begin(), m_days.end(), floor<days>(start.reading));
    }

private:
    std::vector<std::int64_t> m_keys;
    std::vector<local_days> m_days;
};

class Expansion
{
public:
    Expansion(
        const EventItem &master, const Recurrence &recurrence, const ExpansionWindow &window, ExpansionBudget &budget)
        : m_master(master)
        , m_recurrence(recurrence)
        , m_budget(budget)
        , m_from(LocalTime { window.begin.time_since_epoch() } - reach())
        , m_to(LocalTime { window.end.time_since_epoch() } + reach())
        , m_maximum(kMaximumPerDay * ((window.end - window.begin) / days { 1 }) + kMaximumExtra)
    {
    }

    ExpansionResult run(const std::shared_ptr<EventItem> &master, std::vector<Occurrence> &result);

private:
    [[nodiscard]] seconds reach() const;
    [[nodiscard]] std::int64_t keyOf(LocalTime reading) const;
    [[nodiscard]] LocalTime ownReading(const EventTime &time) const;
    void name(const EventTime &time, StartSet &set) const;
    template <typename Visit>
    bool forEach(const RecurrenceRule &rule, Visit &&visit);
    [[nodiscard]] bool isPast(const RecurrenceRule::Until &until, LocalTime reading) const;
    [[nodiscard]] bool collectStarts();
    [[nodiscard]] bool collectExcluded();
    void addFirst();
    void addDates();
    [[nodiscard]] const SeriesException *governing(const Start &start) const;
    [[nodiscard]] Occurrence shifted(const SeriesException &exception, const Start &start) const;

    const EventItem &m_master;
    const Recurrence &m_recurrence;
    ExpansionBudget &m_budget;
    const LocalTime m_from;
    const LocalTime m_to;
    const std::int64_t m_maximum;
    std::vector<Start> m_starts;
    StartSet m_excluded;
};

/// How far from the window a start may lie whose occurrence touches it: its length, the shift of a THISANDFUTURE, and
/// two days for zones and clock changes.
seconds Expansion::reach() const
{
    seconds reach = m_master.length.total();
    for (const auto &added : m_recurrence.addedDates)
        reach = std::max(reach, added.length.value_or(EventLength {}).total());
    for (const auto &exception : m_recurrence.exceptions) {
        if (exception.thisAndFuture)
            reach
                += abs(exception.item->start.reading - exception.recurrenceId.reading) + exception.item->length.total();
    }
    return reach + days { 2 };
}

std::int64_t Expansion::keyOf(LocalTime reading) const
{
    EventTime time = m_master.start;
    time.reading = reading;
    return timeOf(time);
}

/// The reading that `time` has on the series' own clock. Between a zoned value and a series without a zone there is no
/// bridge; the reading is taken as it is written.
LocalTime Expansion::ownReading(const EventTime &time) const
{
    if (m_master.start.form == TimeForm::Day)
        return floor<days>(time.reading);
    if (m_master.start.isZoned() && time.isZoned() && !(time.zone == m_master.start.zone))
        return m_master.start.zone.toLocal(time.zone.toInstant(time.reading));
    return time.reading;
}

void Expansion::name(const EventTime &time, StartSet &set) const
{
    if (time.form == TimeForm::Day && m_master.start.form != TimeForm::Day)
        set.add(floor<days>(time.reading));
    else if (m_master.start.isZoned() && time.isZoned())
        set.add(timeOf(time));
    else
        set.add(keyOf(ownReading(time)));
}

bool Expansion::isPast(const RecurrenceRule::Until &until, LocalTime reading) const
{
    if (m_master.start.form == TimeForm::Day)
        return reading > floor<days>(until.reading);
    if (until.isUtc && m_master.start.isZoned())
        return keyOf(reading) > count(until.reading);
    return reading > until.reading;
}

/// Visits the readings from m_from to m_to; false where the rule costs too much or has too many of them.
template <typename Visit>
bool Expansion::forEach(const RecurrenceRule &rule, Visit &&visit)
{
    RuleIterator iterator(rule, m_master.start.reading, m_to, m_budget);
    iterator.skipTo(m_from);
    std::int64_t visited = 0;
    while (const auto reading = iterator.next()) {
        if (rule.until && isPast(*rule.until, *reading))
            break;
        if (*reading < m_from)
            continue;
        if (++visited > m_maximum)
            return false;
        visit(*reading);
    }
    return !m_budget.isSpent();
}

bool Expansion::collectStarts()
{
    bool complete = true;
    if (m_recurrence.rules.empty())
        addFirst();
    for (const auto &rule : m_recurrence.rules) {
        const std::size_t before = m_starts.size();
        const bool fits = forEach(rule, [this](LocalTime reading) {
            m_starts.push_back({ keyOf(reading), reading, std::nullopt });
        });
        if (!fits) {
            m_starts.resize(before);
            addFirst();
        }
        complete = complete && fits;
    }
    addDates();
    // An RDATE of the form PERIOD wins over the rule's occurrence of that start: it knows its length.
    std::stable_sort(m_starts.begin(), m_starts.end(), [](const Start &a, const Start &b) {
        return std::pair(a.key, !a.length.has_value()) < std::pair(b.key, !b.length.has_value());
    });
    const auto sameKey = [](const Start &a, const Start &b) { return a.key == b.key; };
    m_starts.erase(std::unique(m_starts.begin(), m_starts.end(), sameKey), m_starts.end());
    return complete;
}

/// The event's own start, where there is no rule to say whether it is an occurrence.
void Expansion::addFirst()
{
    const LocalTime first = m_master.start.reading;
    m_starts.push_back({ keyOf(first), first, std::nullopt });
}

void Expansion::addDates()
{
    const LocalTime first = m_master.start.reading;
    for (const auto &added : m_recurrence.addedDates) {
        LocalTime reading = ownReading(added.start);
        if (added.start.form == TimeForm::Day && m_master.start.form != TimeForm::Day)
            reading += first - floor<days>(first);
        m_starts.push_back({ keyOf(reading), reading, added.length });
    }
}

bool Expansion::collectExcluded()
{
    bool complete = true;
    for (const auto &rule : m_recurrence.excludingRules) {
        complete = forEach(rule, [this](LocalTime reading) { m_excluded.add(keyOf(reading)); }) && complete;
    }
    for (const auto &date : m_recurrence.excludedDates)
        name(date, m_excluded);
    for (const auto &exception : m_recurrence.exceptions)
        name(exception.recurrenceId, m_excluded);
    m_excluded.prepare();
    return complete;
}

/// The THISANDFUTURE exception that speaks for `start`, the latest of those before it.
const SeriesException *Expansion::governing(const Start &start) const
{
    const SeriesException *latest = nullptr;
    std::int64_t latestKey = 0;
    for (const auto &exception : m_recurrence.exceptions) {
        if (!exception.thisAndFuture)
            continue;
        const std::int64_t key = keyOf(ownReading(exception.recurrenceId));
        if (key <= start.key && (!latest || key > latestKey)) {
            latest = &exception;
            latestKey = key;
        }
    }
    return latest;
}

/// `start` moved as `exception` was moved.
Occurrence Expansion::shifted(const SeriesException &exception, const Start &start) const
{
    const LocalTime from = ownReading(exception.recurrenceId);
    const LocalTime to = exception.item->start.form == m_master.start.form ? ownReading(exception.item->start)
                                                                           : exception.item->start.reading;
    LocalTime reading = start.reading + (to - from);
    const EventTime &own = exception.item->start;
    if (own.isZoned() && m_master.start.isZoned())
        reading = own.zone.toLocal(m_master.start.zone.toInstant(reading));
    return makeOccurrence(exception.item, reading, exception.item->length);
}

ExpansionResult Expansion::run(const std::shared_ptr<EventItem> &master, std::vector<Occurrence> &result)
{
    const bool startsComplete = collectStarts();
    const bool complete = collectExcluded() && startsComplete;
    for (const Start &start : m_starts) {
        if (m_excluded.contains(start))
            continue;
        const SeriesException *future = governing(start);
        Occurrence occurrence = future ? shifted(*future, start)
                                       : makeOccurrence(master, start.reading, start.length.value_or(master->length));
        occurrence.original = start.key;
        occurrence.originalIsZoned = master->start.isZoned();
        if (!occurrence.item->isCancelled)
            result.push_back(std::move(occurrence));
    }
    return complete ? ExpansionResult::Complete : ExpansionResult::RuleRefused;
}

} // namespace

Occurrence singleOccurrence(const std::shared_ptr<const EventItem> &item)
{
    return makeOccurrence(item, item->start.reading, item->length);
}

ExpansionResult expandSeries(
    const EventSeries &series, const ExpansionWindow &window, ExpansionBudget &budget, std::vector<Occurrence> &result)
{
    ExpansionResult outcome = ExpansionResult::Complete;
    if (series.master) {
        ExpansionBudget own { std::min(budget.steps, kMaximumStepsPerSeries) };
        const std::int64_t before = own.steps;
        outcome = Expansion(*series.master, *series.recurrence, window, own).run(series.master, result);
        budget.steps -= before - std::max<std::int64_t>(own.steps, 0);
    }
    for (const auto &exception : series.recurrence->exceptions) {
        if (exception.item->isCancelled)
            continue;
        Occurrence occurrence = singleOccurrence(exception.item);
        occurrence.original = timeOf(exception.recurrenceId);
        occurrence.originalIsZoned = exception.recurrenceId.isZoned();
        result.push_back(std::move(occurrence));
    }
    return outcome;
}

} // namespace mintaro
