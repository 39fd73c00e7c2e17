#pragma once

#include "Platform/EventKit/EKSpan.h"
#include "Platform/Foundation/TimeZone.h"

#include <QByteArray>

#include <map>
#include <optional>
#include <set>
#include <tuple>
#include <vector>

namespace mintaro::model {

// What a user means by calendars, said as plainly as can be: a series is the list of its occurrences. It knows no text,
// no rule that is kept, no exception as such; what the store answers is compared with it.

/// Endless series are listed up to here; questions end long before.
inline constexpr LocalTime kHorizon = std::chrono::local_days { std::chrono::year { 2028 } / 3 / 1 };

/// The user's zone.
[[nodiscard]] const TimeZone &rome();

/// Values of RFC 5545 3.3.4 and 3.3.5.
[[nodiscard]] QByteArray dayText(LocalTime reading);
[[nodiscard]] QByteArray readingText(LocalTime reading);

/// The clock that times are said by.
enum class Form : unsigned char { Day, Rome, Utc, NewYork };
[[nodiscard]] const TimeZone &zoneOf(Form form);

struct When
{
    Form form = Form::Rome;
    LocalTime start {};
    /// Of days whole ones; else what passes.
    std::chrono::seconds length { 0 };

    /// As a user sees them: of days up to a second before the midnight.
    [[nodiscard]] std::chrono::sys_seconds shownStart() const;
    [[nodiscard]] std::chrono::sys_seconds shownEnd() const;

    friend bool operator==(const When &, const When &) = default;
};

using Tags = std::set<QByteArray>;

struct Says
{
    When when;
    QString title;
    QString location;
    QString notes;
    std::vector<std::chrono::seconds> alarms;
    /// Lines of other programs.
    Tags tags;
};

struct Rule
{
    enum class Kind : unsigned char { Daily, Weekly, MonthDay, LastMonthDay, MonthWeekday, Yearly };

    Kind kind = Kind::Daily;
    int interval = 1;
    /// Of Daily and Weekly; empty for what the first day is.
    std::set<unsigned> weekdays;
    /// 0 for no such end.
    int count = 0;
    /// The last reading that it may give.
    std::optional<LocalTime> until;

    [[nodiscard]] bool isEndless() const { return count == 0 && !until; }
    /// The first one included.
    [[nodiscard]] std::set<LocalTime> starts(LocalTime first) const;
    /// As an RRULE.
    [[nodiscard]] QByteArray text(Form form, LocalTime first) const;
};

/// Which moves by days all occurrences can make together.
enum class Grid : unsigned char { Days, MonthDay, Fixed };
[[nodiscard]] Grid gridOf(Rule::Kind kind);

/// What a user sets.
struct Changes
{
    std::optional<QString> title {};
    std::optional<QString> location {};
    std::optional<QString> notes {};
    std::optional<std::chrono::sys_seconds> start {};
    std::optional<std::chrono::sys_seconds> end {};
    std::optional<bool> allDay {};
    std::optional<std::vector<std::chrono::seconds>> alarms {};
    std::optional<Rule> rule {};
    bool endsRepeating = false;
    std::optional<QString> calendar {};

    [[nodiscard]] bool changesTime() const { return start || end || allDay; }
    [[nodiscard]] bool changesRules() const { return rule || endsRepeating; }
};

/// An event, or several that belong together.
struct Series
{
    QString calendar;
    QString uid;
    /// What all say that say nothing of their own.
    Says base;
    bool repeats = false;
    bool isEndless = false;
    Grid grid = Grid::Days;
    /// All that were ever meant, by the clock of `base`, and of these the ones that were taken out.
    std::set<LocalTime> starts;
    std::set<LocalTime> excluded;
    /// Of `starts`, those that no rule gives.
    std::set<LocalTime> added;
    std::map<LocalTime, Says> own;
    /// Lines of other programs round the event.
    Tags calendarTags;

    [[nodiscard]] std::vector<LocalTime> live() const;
    [[nodiscard]] bool isLive(LocalTime original) const;
    [[nodiscard]] bool isFirst(LocalTime original) const;
    [[nodiscard]] Says at(LocalTime original) const;
    /// It is when the series says so, for as long as the series says.
    [[nodiscard]] bool hasOwnTime(LocalTime original) const;
    [[nodiscard]] bool isGone() const { return !isEndless && live().empty(); }

    void setRule(const Rule &rule, LocalTime first);
    void takeOut(LocalTime original);
    /// Leaves what comes before, and gives the rest.
    [[nodiscard]] Series split(LocalTime from);
};

/// One occurrence among all.
struct Place
{
    std::size_t series = 0;
    LocalTime original {};
};

/// The times after a change. `isAlone`: nothing else moves along.
[[nodiscard]] When changedWhen(const When &when, const Changes &changes, bool isAlone);
/// Where the other starts go when the one at `from` goes to `to`.
[[nodiscard]] LocalTime moved(LocalTime start, Form form, LocalTime from, const When &to);

/// Whether the meaning of a change for the rest of a series is beyond doubt.
[[nodiscard]] bool isPlain(const Series &series, LocalTime original, const Changes &changes, EKSpan span);

class Calendars
{
public:
    std::vector<Series> all;

    /// Gives where the occurrence is then. One with an empty UID is new.
    Place change(const Place &place, const Changes &changes, EKSpan span);
    void remove(const Place &place, EKSpan span);

private:
    Place changeOne(const Place &place, const Changes &changes);
    Place changeFuture(const Place &place, const Changes &changes);
    void dropGone();
};

} // namespace mintaro::model
