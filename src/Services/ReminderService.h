#pragma once

#include "Models/ReminderItem.h"
#include "Platform/EventKit/EKEventStore.h"
#include "Platform/Foundation/Actor.h"
#include "Platform/Foundation/Calendar.h"
#include "Platform/Foundation/Clock.h"
#include "Platform/Foundation/LinkDetector.h"
#include "Platform/Foundation/Logger.h"
#include "Services/RevisionCache.h"

#include <QCoroTask>

namespace mintaro {

/// The only way to the reminders of the store: an actor with a store connection of its own. Its operations may be
/// awaited from any thread with an event loop.
class ReminderService
{
public:
    /// `clock` must outlive the object.
    ReminderService(EKEventStore store, const Clock &clock, const LogSink &log = writeToSystemLog);

    /// True when granted; throws EKError as the store reports it.
    [[nodiscard]] QCoro::Task<bool> requestAccess();
    /// All reminder lists, in the store's order.
    [[nodiscard]] QCoro::Task<std::vector<EKCalendarRef>> reminderLists();
    /// Every reminder of the lists, done or not, dated or not, each with its own URL, else the first link in its notes.
    /// `lists`: absent for every one. `calendar` tells the moment of a date without a zone.
    [[nodiscard]] QCoro::Task<std::vector<ReminderItem>> fetchReminders(
        std::optional<std::vector<EKCalendarRef>> lists, Calendar calendar);
    /// `id`: a calendarItemIdentifier. Both do nothing where there is no such reminder by now; what the store refuses
    /// costs a line in the log.
    [[nodiscard]] QCoro::Task<> toggleCompletion(QString id);
    [[nodiscard]] QCoro::Task<> deleteReminder(QString id);

private:
    [[nodiscard]] std::vector<ReminderItem> fetch(const EKReminderPredicate &predicate, const Calendar &calendar);
    [[nodiscard]] std::optional<EKReminder> find(const QString &id);
    [[nodiscard]] std::optional<URL> link(const EKReminder &reminder) const;

    EKEventStore m_store;
    const Clock &m_clock;
    const Logger m_logger;
    LinkDetector m_linkDetector;
    RevisionCache<ReminderRecord, std::optional<URL>> m_links;
    /// Last, so that it stops before what its thread works on goes.
    Actor m_actor;
};

} // namespace mintaro
