#include "Platform/EventKit/RecurrenceExpander.h"

#include "Platform/EventKit/SeriesClock.h"

#include <algorithm>

namespace mintaro {

using namespace std::chrono;

namespace {

/// A rule denser than one occurrence in five minutes says nothing to people.
constexpr std::int64_t kMaximumPerDay = 300;
constexpr std::int64_t kMaximumExtra = 1'000;
constexpr std::int64_t kMaximumStepsPerSeries = 2'000'000;

Occurrence makeOccurrence(const EventTiming &timing, LocalTime reading, const EventLength &length)
{
    EventTime start = timing.start;
    start.reading = reading;
    EventTime nominalEnd = start;
    nominalEnd.reading += length.nominal;
    Occurrence occurrence;
    occurrence.start = SeriesClock::keyOf(start);
    occurrence.end = std::max(occurrence.start, SeriesClock::keyOf(nominalEnd) + length.exact.count());
    occurrence.original = occurrence.start;
    occurrence.item = timing.item;
    occurrence.form = start.form;
    occurrence.originalIsZoned = start.isZoned();
    return occurrence;
}

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
    [[nodiscard]] bool contains(const SeriesStart &start) const
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
        const EventTiming &master, const Recurrence &recurrence, const ExpansionWindow &window, ExpansionBudget &budget)
        : m_master(master)
        , m_clock(master.start)
        , m_recurrence(recurrence)
        , m_budget(budget)
        , m_from(LocalTime { window.begin.time_since_epoch() } - reach())
        , m_to(LocalTime { window.end.time_since_epoch() } + reach())
        , m_maximum(kMaximumPerDay * ((window.end - window.begin) / days { 1 }) + kMaximumExtra)
    {
    }

    ExpansionResult run(std::vector<Occurrence> &result);
    [[nodiscard]] std::optional<std::vector<SeriesStart>> starts();

private:
    [[nodiscard]] seconds reach() const;
    void name(const EventTime &time, StartSet &set) const;
    template <typename Visit>
    bool forEach(const RecurrenceRule &rule, Visit &&visit);
    [[nodiscard]] bool collectStarts();
    [[nodiscard]] bool collectExcluded();
    void addFirst();
    void addDates();
    void collectFuture();
    [[nodiscard]] const SeriesException *governing(const SeriesStart &start) const;
    [[nodiscard]] Occurrence shifted(const SeriesException &exception, const SeriesStart &start) const;

    const EventTiming &m_master;
    const SeriesClock m_clock;
    const Recurrence &m_recurrence;
    ExpansionBudget &m_budget;
    const LocalTime m_from;
    const LocalTime m_to;
    const std::int64_t m_maximum;
    /// By all rules together.
    std::int64_t m_visited = 0;
    std::vector<SeriesStart> m_starts;
    StartSet m_excluded;
    std::vector<std::pair<std::int64_t, const SeriesException *>> m_future;
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
            reach += abs(exception.timing.start.reading - exception.recurrenceId.reading)
                + exception.timing.length.total();
    }
    return reach + days { 2 };
}

void Expansion::name(const EventTime &time, StartSet &set) const
{
    if (time.form == TimeForm::Day && m_master.start.form != TimeForm::Day)
        set.add(floor<days>(time.reading));
    else if (m_master.start.isZoned() && time.isZoned())
        set.add(SeriesClock::keyOf(time));
    else
        set.add(m_clock.keyOf(m_clock.reading(time)));
}

/// Visits the readings from m_from to m_to; false where the rule costs too much, or there are too many of them.
template <typename Visit>
bool Expansion::forEach(const RecurrenceRule &rule, Visit &&visit)
{
    if (m_budget.steps <= 0)
        return false;
    RuleIterator iterator(rule, m_master.start.reading, m_to, m_budget);
    iterator.skipTo(m_from);
    while (const auto reading = iterator.next()) {
        if (rule.until && m_clock.isPast(*rule.until, *reading))
            break;
        if (*reading < m_from)
            continue;
        if (++m_visited > m_maximum)
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
            m_starts.push_back({ m_clock.keyOf(reading), reading, std::nullopt });
        });
        if (!fits) {
            m_starts.resize(before);
            addFirst();
        }
        complete = complete && fits;
    }
    addDates();
    // An RDATE of the form PERIOD wins over the rule's occurrence of that start: it knows its length.
    std::stable_sort(m_starts.begin(), m_starts.end(), [](const SeriesStart &a, const SeriesStart &b) {
        return std::pair(a.key, !a.length.has_value()) < std::pair(b.key, !b.length.has_value());
    });
    const auto sameKey = [](const SeriesStart &a, const SeriesStart &b) { return a.key == b.key; };
    m_starts.erase(std::unique(m_starts.begin(), m_starts.end(), sameKey), m_starts.end());
    return complete;
}

/// The event's own start, where there is no rule to say whether it is an occurrence.
void Expansion::addFirst()
{
    const LocalTime first = m_master.start.reading;
    m_starts.push_back({ m_clock.keyOf(first), first, std::nullopt });
}

void Expansion::addDates()
{
    const LocalTime first = m_master.start.reading;
    for (const auto &added : m_recurrence.addedDates) {
        LocalTime reading = m_clock.reading(added.start);
        if (added.start.form == TimeForm::Day && m_master.start.form != TimeForm::Day)
            reading += first - floor<days>(first);
        m_starts.push_back({ m_clock.keyOf(reading), reading, added.length });
    }
}

bool Expansion::collectExcluded()
{
    bool complete = true;
    for (const auto &rule : m_recurrence.excludingRules) {
        complete = forEach(rule, [this](LocalTime reading) { m_excluded.add(m_clock.keyOf(reading)); }) && complete;
    }
    for (const auto &date : m_recurrence.excludedDates)
        name(date, m_excluded);
    m_excluded.prepare();
    return complete;
}

/// Puts the THISANDFUTURE exceptions in the order of what they except.
void Expansion::collectFuture()
{
    for (const auto &exception : m_recurrence.exceptions) {
        if (exception.thisAndFuture)
            m_future.emplace_back(m_clock.keyOf(m_clock.reading(exception.recurrenceId)), &exception);
    }
    std::stable_sort(m_future.begin(), m_future.end(), [](const auto &a, const auto &b) { return a.first < b.first; });
}

/// The THISANDFUTURE exception that speaks for `start`, the latest of those before it.
const SeriesException *Expansion::governing(const SeriesStart &start) const
{
    const auto next = std::upper_bound(m_future.begin(), m_future.end(), start.key,
        [](std::int64_t key, const auto &future) { return key < future.first; });
    return next == m_future.begin() ? nullptr : std::prev(next)->second;
}

/// `start` moved as `exception` was moved.
Occurrence Expansion::shifted(const SeriesException &exception, const SeriesStart &start) const
{
    const LocalTime from = m_clock.reading(exception.recurrenceId);
    const LocalTime to = exception.timing.start.form == m_master.start.form ? m_clock.reading(exception.timing.start)
                                                                            : exception.timing.start.reading;
    LocalTime reading = start.reading + (to - from);
    const EventTime &own = exception.timing.start;
    if (own.isZoned() && m_master.start.isZoned())
        reading = own.zone.toLocal(m_master.start.zone.toInstant(reading));
    return makeOccurrence(exception.timing, reading, exception.timing.length);
}

std::optional<std::vector<SeriesStart>> Expansion::starts()
{
    if (!collectStarts() || !collectExcluded())
        return std::nullopt;
    std::erase_if(m_starts, [this](const SeriesStart &start) {
        return start.reading < m_from || start.reading > m_to || m_excluded.contains(start);
    });
    return std::move(m_starts);
}

ExpansionResult Expansion::run(std::vector<Occurrence> &result)
{
    for (const auto &exception : m_recurrence.exceptions)
        name(exception.recurrenceId, m_excluded);
    const bool startsComplete = collectStarts();
    const bool complete = collectExcluded() && startsComplete;
    collectFuture();
    for (const SeriesStart &start : m_starts) {
        if (m_excluded.contains(start))
            continue;
        const SeriesException *future = governing(start);
        if (future ? future->timing.isCancelled : m_master.isCancelled)
            continue;
        result.push_back(future ? shifted(*future, start)
                                : makeOccurrence(m_master, start.reading, start.length.value_or(m_master.length)));
        result.back().original = start.key;
        result.back().originalIsZoned = m_master.start.isZoned();
    }
    return complete ? ExpansionResult::Complete : ExpansionResult::RuleRefused;
}

} // namespace

Occurrence singleOccurrence(const EventTiming &timing)
{
    return makeOccurrence(timing, timing.start.reading, timing.length);
}

std::optional<std::vector<SeriesStart>> seriesStarts(
    const EventTiming &master, const Recurrence &recurrence, const ExpansionWindow &window, ExpansionBudget &budget)
{
    return Expansion(master, recurrence, window, budget).starts();
}

ExpansionResult expandSeries(
    const EventSeries &series, const ExpansionWindow &window, ExpansionBudget &budget, std::vector<Occurrence> &result)
{
    ExpansionResult outcome = ExpansionResult::Complete;
    if (series.master) {
        ExpansionBudget own { std::min(budget.steps, kMaximumStepsPerSeries) };
        const std::int64_t before = own.steps;
        outcome = Expansion(*series.master, *series.recurrence, window, own).run(result);
        budget.steps -= before - std::max<std::int64_t>(own.steps, 0);
    }
    for (const auto &exception : series.recurrence->exceptions) {
        if (exception.timing.isCancelled)
            continue;
        Occurrence occurrence = singleOccurrence(exception.timing);
        occurrence.original = SeriesClock::keyOf(exception.recurrenceId);
        occurrence.originalIsZoned = exception.recurrenceId.isZoned();
        result.push_back(std::move(occurrence));
    }
    return outcome;
}

} // namespace mintaro
