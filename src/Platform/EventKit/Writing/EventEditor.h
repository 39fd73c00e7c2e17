#pragma once

#include "Platform/EventKit/EKSpan.h"
#include "Platform/EventKit/EventChanges.h"
#include "Platform/EventKit/Writing/EventTimes.h"
#include "Platform/EventKit/Writing/OccurrenceFinder.h"

#include <functional>

namespace mintaro {

/// What a change needs to know besides the objects.
struct EditContext
{
    TimeZone viewer;
    std::chrono::sys_seconds now;
    /// The user's own, in lower case.
    QStringList userAddresses {};
    std::function<QString()> newUid;
};

/// Works out what changing or removing an event does to the objects that hold it, which may have been changed by other
/// programs since the user saw the event: only fields that the user changed are written. Nothing is changed that is not
/// wholly understood.
class EventEditor
{
public:
    /// `objects`: the present texts of all that hold anything of `uid`. Throws EKError where it is in none.
    EventEditor(std::vector<ObjectText> objects, const QString &uid, EditContext context);

    /// Both throw EKError, with a text for people, where it cannot be done. Each is to be called once.
    /// With `isMoving` the event leaves its objects for one of its own: all of it, or as much as `span` says.
    [[nodiscard]] StoreEdit change(
        const EventReference &reference, const EventChanges &changes, EKSpan span, bool isMoving);
    [[nodiscard]] StoreEdit remove(const EventReference &reference, EKSpan span);

    /// The object of a new event. `changes` has a start and an end.
    [[nodiscard]] static NewObject create(const EventChanges &changes, const EditContext &context);

private:
    [[nodiscard]] bool happens(const EventEntry &master);
    void refuseRanges(const EventEntry &master);
    void passRangeOn(EventEntry &exception, const EventTarget &target);
    void noteOverwritten(const EventTarget &target, const EventReference &reference, const EventChanges &changes);

    void changeNode(ICalNode &node, const EventComponent &read, const EventEntry &entry, const WrittenTimes &times,
        const EventChanges &changes);
    void changeOccurrence(const EventTarget &target, const WrittenTimes &times, const EventChanges &changes);
    [[nodiscard]] ICalNode aloneNode(const EventTarget &target) const;
    void takeOccurrenceOut(const EventTarget &target);
    void detach(const EventTarget &target, const WrittenTimes &times, const EventChanges &changes);
    void changeFuture(const EventTarget &target, const WrittenTimes &times, const EventChanges &changes, bool isMoving);
    void changeSeries(const EventTarget &target, ICalNode &master, const EventComponent &read,
        const std::vector<std::pair<ICalNode *, const EventEntry *>> &exceptions, const WrittenTimes &times,
        const EventChanges &changes);
    void create(std::vector<ICalNode> events, const ICalNode &source, const EventTime &start);
    void revise(ICalNode &node, bool isRevision) const;

    SeriesText m_text;
    EditContext m_context;
    OccurrenceFinder m_finder;
    StoreEdit m_edit;
};

} // namespace mintaro
