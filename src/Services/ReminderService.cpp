#include "Services/ReminderService.h"

#include "Platform/EventKit/StoreBackend.h"

namespace mintaro {

namespace {

QString logTitle(const EKReminder &reminder)
{
    return reminder.title().isEmpty() ? QStringLiteral("untitled") : reminder.title();
}

ReminderItem toItem(const EKReminder &reminder, const std::optional<URL> &url, const Calendar &calendar)
{
    const auto due = reminder.dueDateComponents();
    return { .id = reminder.calendarItemIdentifier(),
        .title = reminder.title(),
        .dueDate = due ? due->date(calendar) : std::nullopt,
        .isCompleted = reminder.isCompleted(),
        .listColor = reminder.calendar()->cgColor,
        .url = url };
}

} // namespace

ReminderService::ReminderService(EKEventStore store, const Clock &clock, const LogSink &log)
    : m_store(std::move(store))
    , m_clock(clock)
    , m_logger(QStringLiteral("Reminders"), log)
    , m_actor(QStringLiteral("Reminders"))
{
}

QCoro::Task<bool> ReminderService::requestAccess()
{
    return m_actor.perform([this] { return m_store.requestFullAccessToReminders(); });
}

QCoro::Task<std::vector<EKCalendarRef>> ReminderService::reminderLists()
{
    return m_actor.perform([this] { return m_store.calendarsForEntityType(EKEntityType::Reminder); });
}

QCoro::Task<std::vector<ReminderItem>> ReminderService::fetchReminders(
    std::optional<std::vector<EKCalendarRef>> lists, Calendar calendar)
{
    return m_actor.perform([this, predicate = EKEventStore::predicateForReminders(lists), calendar] {
        return fetch(predicate, calendar);
    });
}

std::vector<ReminderItem> ReminderService::fetch(const EKReminderPredicate &predicate, const Calendar &calendar)
{
    std::vector<ReminderItem> fetched;
    for (const EKReminder &reminder : m_store.fetchRemindersMatchingPredicate(predicate)) {
        const auto &url = m_links.value(reminder.record(), [&] { return link(reminder); });
        fetched.push_back(toItem(reminder, url, calendar));
    }
    m_links.prune();
    return fetched;
}

QCoro::Task<> ReminderService::toggleCompletion(QString id)
{
    return m_actor.perform([this, id] {
        auto reminder = find(id);
        if (!reminder)
            return;
        reminder->setCompleted(!reminder->isCompleted());
        reminder->setCompletionDate(reminder->isCompleted() ? std::optional(m_clock.now()) : std::nullopt);
        try {
            m_store.save(*reminder);
            m_logger.info(QStringLiteral("Reminder toggled: %1").arg(logTitle(*reminder)));
        } catch (const EKError &error) {
            m_logger.error(QStringLiteral("Failed to toggle reminder: %1").arg(QString::fromUtf8(error.what())));
        }
    });
}

QCoro::Task<> ReminderService::deleteReminder(QString id)
{
    return m_actor.perform([this, id] {
        const auto reminder = find(id);
        if (!reminder)
            return;
        try {
            m_store.remove(*reminder);
            m_logger.info(QStringLiteral("Reminder deleted: %1").arg(logTitle(*reminder)));
        } catch (const EKError &error) {
            m_logger.error(QStringLiteral("Failed to delete reminder: %1").arg(QString::fromUtf8(error.what())));
        }
    });
}

std::optional<EKReminder> ReminderService::find(const QString &id)
{
    const auto all = m_store.fetchRemindersMatchingPredicate(EKEventStore::predicateForReminders(std::nullopt));
    const auto found = std::ranges::find(all, id, &EKReminder::calendarItemIdentifier);
    return found == all.end() ? std::nullopt : std::optional(*found);
}

std::optional<URL> ReminderService::link(const EKReminder &reminder) const
{
    if (const auto url = reminder.url())
        return URL::fromString(*url);
    const QString notes = reminder.notes().value_or(QString());
    const auto match = m_linkDetector.firstMatch(notes);
    return match ? URL::fromString(notes.mid(match->location, match->length)) : std::nullopt;
}

} // namespace mintaro
