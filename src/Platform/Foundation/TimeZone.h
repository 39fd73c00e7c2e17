#pragma once

#include "Platform/Foundation/Date.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

namespace mintaro {

/// A time zone: the bridge between moments and clock readings. A cheap value over shared, immutable rules; safe to use
/// from any thread. Named zones have the rules of the system's time zone database.
class TimeZone
{
public:
    /// From `at` on the zone is `offset` ahead of UTC.
    struct Transition
    {
        std::chrono::sys_seconds at;
        std::chrono::seconds offset;
    };
    /// How a zone's clocks are set from a moment on.
    struct Observance
    {
        std::chrono::sys_seconds onset;
        std::chrono::seconds offsetBefore;
        std::chrono::seconds offset;
        /// Ahead of the year's other time, also where the law calls the summer's time the standard (Europe/Dublin).
        bool isDaylight;
        /// "CET", or "+03" where the time has no name; the database's, in no one's language.
        QString abbreviation;

        /// The onset on the clocks as they were set before it, as RFC 5545 3.6.5 says onsets.
        [[nodiscard]] LocalTime readingBefore() const { return LocalTime { onset.time_since_epoch() + offsetBefore }; }
    };

    /// UTC.
    TimeZone();
    /// The zone of an IANA name or a link to one ("Europe/Rome", "UTC", "US/Eastern"); empty when the system's
    /// database does not know it.
    [[nodiscard]] static std::optional<TimeZone> named(const QString &identifier);
    /// A zone with rules of its own: `initialOffset` up to the first of the ascending `transitions`.
    [[nodiscard]] static TimeZone custom(
        const QString &identifier, std::chrono::seconds initialOffset, std::vector<Transition> transitions);
    /// The places of the system's database, and UTC, in alphabetical order; other names for a place are not among them.
    [[nodiscard]] static QStringList knownTimeZoneIdentifiers();
    /// The zone that the system is set to now: the TZ variable, else the link /etc/localtime, else UTC. Reads the file
    /// system.
    [[nodiscard]] static TimeZone system();

    [[nodiscard]] const QString &identifier() const;
    /// Its rules are those of the system's database; `named` gives it by its identifier.
    [[nodiscard]] bool isNamed() const;
    /// Of a zone that is not named, what `custom` made it of.
    [[nodiscard]] std::chrono::seconds initialOffset() const;
    [[nodiscard]] const std::vector<Transition> &transitions() const;
    /// Of a named zone other than UTC the observance that holds at `begin`, as though it began there, and those that
    /// begin between the two moments, ascending. Of any other zone none. Asks the database each time.
    [[nodiscard]] std::vector<Observance> observances(
        std::chrono::sys_seconds begin, std::chrono::sys_seconds end) const;
    /// How far the zone is ahead of UTC at that moment.
    [[nodiscard]] std::chrono::seconds secondsFromGMT(std::chrono::sys_seconds at) const;
    /// "CET" or "CEST", or "+03" where the time has no name; the database's, in no one's language. Empty for a zone
    /// that is not named.
    [[nodiscard]] QString abbreviation(std::chrono::sys_seconds at) const;
    [[nodiscard]] LocalTime toLocal(std::chrono::sys_seconds at) const;
    /// RFC 5545 3.3.5: of two moments with this reading the earlier one; a reading inside a gap is taken with the
    /// offset before the gap.
    [[nodiscard]] std::chrono::sys_seconds toInstant(LocalTime reading) const;

    friend bool operator==(const TimeZone &a, const TimeZone &b) { return a.m_rules == b.m_rules; }

private:
    struct Rules;
    explicit TimeZone(std::shared_ptr<const Rules> rules);
    std::shared_ptr<const Rules> m_rules;
};

} // namespace mintaro
