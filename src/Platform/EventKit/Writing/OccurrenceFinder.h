#pragma once

#include "Platform/EventKit/Writing/SeriesText.h"

namespace mintaro {

/// The occurrence that the user saw.
struct EventReference
{
    std::shared_ptr<const EventItem> item;
    /// As EKEvent tells them.
    Date start;
    Date end;
    /// The start that its series gives, as SeriesClock counts it.
    std::int64_t original = 0;
    bool originalIsZoned = false;
};

/// An occurrence found in the texts.
struct EventTarget
{
    /// Null where the objects hold exceptions alone.
    EventEntry *master = nullptr;
    /// What stands in the place of this occurrence alone; mostly null.
    EventEntry *exception = nullptr;
    /// Says what the occurrence says.
    EventEntry *source = nullptr;
    /// What the series counts it by.
    std::int64_t key = 0;
    LocalTime reading {};
    EventTime start;
    EventLength length;
};

/// The reading of a RECURRENCE-ID on the clock of a series with this start. A day stands for the occurrence of that
/// day.
[[nodiscard]] LocalTime exceptedReading(const EventTime &id, const EventTime &seriesStart);
/// What the series counts it by.
[[nodiscard]] std::int64_t exceptedKey(const EventTime &id, const EventTime &seriesStart);

/// Finds in the present texts what a handle from an earlier time names.
class OccurrenceFinder
{
public:
    /// `text` must outlive the finder.
    OccurrenceFinder(SeriesText &text, TimeZone viewer)
        : m_text(text)
        , m_viewer(std::move(viewer))
    {
    }

    /// Throws EKError where it no longer exists.
    [[nodiscard]] EventTarget find(const EventReference &reference);
    /// Whether the event happens more than once.
    [[nodiscard]] bool repeats(const EventEntry &master);
    /// Of several events with one UID the first one has the exceptions.
    [[nodiscard]] bool isFirst(const EventEntry &master);
    /// Whether several events, other than exceptions, have the UID.
    [[nodiscard]] bool hasTwins();
    /// Those of the master, or all where there is none.
    [[nodiscard]] std::vector<EventEntry *> exceptions(const EventEntry *master);
    /// Those for this occurrence or a later one.
    [[nodiscard]] std::vector<EventEntry *> exceptionsFrom(const EventTarget &target);
    /// The one that holds for this occurrence; null where there is none.
    [[nodiscard]] EventEntry *exceptionAt(const EventEntry &master, std::int64_t key);
    /// Whether anything of the series comes before this occurrence.
    [[nodiscard]] bool beginsBefore(const EventTarget &target);

private:
    [[nodiscard]] std::optional<EventTarget> find(const EventReference &reference, EventEntry &master, bool isOnly);
    void applyRange(EventTarget &target);

    SeriesText &m_text;
    TimeZone m_viewer;
};

} // namespace mintaro
