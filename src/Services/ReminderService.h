#pragma once

#include "Platform/EventKit/EKEventStore.h"
#include "Platform/Foundation/Actor.h"
#include "Platform/Foundation/LinkDetector.h"
#include "Services/RevisionCache.h"

#include <QCoroTask>

namespace mintaro {

/// A reminder with its link: its own URL, else the first link in its notes.
struct FetchedReminder
{
    EKReminder reminder;
    std::optional<URL> url;
};

/// The only way to the reminders of the store: an actor with a store connection of its own. Its operations may be
/// awaited from any thread with an event loop.
class ReminderService
{
public:
    explicit ReminderService(EKEventStore store);

    /// True when granted; throws EKError as the store reports it.
    [[nodiscard]] QCoro::Task<bool> requestAccess();
    /// All reminder lists, in the store's order.
    [[nodiscard]] QCoro::Task<std::vector<EKCalendarRef>> reminderLists();
    /// Every reminder of the lists, done or not, dated or not. `lists`: absent for every one.
    [[nodiscard]] QCoro::Task<std::vector<FetchedReminder>> fetchReminders(
        std::optional<std::vector<EKCalendarRef>> lists);

private:
    [[nodiscard]] std::vector<FetchedReminder> fetch(const EKReminderPredicate &predicate);
    [[nodiscard]] std::optional<URL> link(const EKReminder &reminder) const;

    EKEventStore m_store;
    LinkDetector m_linkDetector;
    RevisionCache<ReminderRecord, std::optional<URL>> m_links;
    /// Last, so that it stops before what its thread works on goes.
    Actor m_actor;
};

} // namespace mintaro
