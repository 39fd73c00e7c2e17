#include "Platform/EventKit/ICalendarReader.h"

#include "Platform/EventKit/EventReader.h"
#include "Platform/EventKit/ICalComponent.h"
#include "Platform/EventKit/PropertyReader.h"

#include <algorithm>
#include <map>
#include <set>

namespace mintaro {

namespace {

constexpr qsizetype kLongestComplaint = 1'000;

/// Puts the events of an object together by UID.
class SeriesCollector
{
public:
    explicit SeriesCollector(PropertyReader &reader)
        : m_reader(reader)
    {
    }

    void add(EventComponent event)
    {
        if (event.exception)
            m_exceptions[event.item->uid].push_back(std::move(event));
        else if (m_uids.insert(event.item->uid).second)
            m_masters.push_back(std::move(event));
        else
            addDuplicate(std::move(event));
    }

    void finish(CalendarObject &object)
    {
        for (EventComponent &master : m_masters) {
            EventSeries &series = object.schedule.events.emplace_back();
            series.uid = uidKey(master.item->uid);
            series.recurrence = std::move(master.recurrence);
            const std::vector<EKRecurrenceRule> rules = master.item->recurrenceRules;
            series.master = master.timing;
            series.master->item = keep(std::move(master.item), object);
            const auto found = m_exceptions.find(object.details.items.back()->uid);
            if (found == m_exceptions.end())
                continue;
            addExceptions(std::move(found->second), rules, series, object);
            m_exceptions.erase(found);
        }
        for (auto &[uid, orphans] : m_exceptions) {
            EventSeries &series = object.schedule.events.emplace_back();
            series.uid = uidKey(uid);
            addExceptions(std::move(orphans), {}, series, object);
        }
    }

private:
    void addDuplicate(EventComponent event)
    {
        m_reader.complain(QStringLiteral("UID \"%1\" more than once").arg(event.item->uid));
        m_masters.push_back(std::move(event));
    }

    static std::uint32_t keep(std::shared_ptr<const EventItem> item, CalendarObject &object)
    {
        object.details.items.push_back(std::move(item));
        return static_cast<std::uint32_t>(object.details.items.size() - 1);
    }

    static void addExceptions(std::vector<EventComponent> components, const std::vector<EKRecurrenceRule> &rules,
        EventSeries &series, CalendarObject &object)
    {
        if (!series.recurrence)
            series.recurrence = std::make_unique<Recurrence>();
        std::vector<SeriesException> exceptions;
        for (EventComponent &each : components) {
            each.item->recurrenceRules = rules;
            each.exception->timing.item = keep(std::move(each.item), object);
            exceptions.push_back(std::move(*each.exception));
        }
        mergeExceptions(series.recurrence->exceptions, std::move(exceptions));
    }

    PropertyReader &m_reader;
    std::vector<EventComponent> m_masters;
    std::set<QString> m_uids;
    std::map<QString, std::vector<EventComponent>> m_exceptions;
};

/// Visits the components of a name in the calendars of a text, however they are wrapped.
template <typename Visit>
void visitAll(const ICalComponent &parent, QByteArrayView name, Visit &visit)
{
    for (const ICalComponent &child : parent.components) {
        if (child.name == name)
            visit(child);
        else if (child.name == "VCALENDAR")
            visitAll(child, name, visit);
    }
}

void readReminders(
    const ICalComponent &root, PropertyReader &reader, const QString &namelessUid, CalendarObject &object)
{
    std::set<QString> masters;
    std::vector<std::shared_ptr<ReminderRecord>> exceptions;
    const auto keep = [&](std::shared_ptr<ReminderRecord> record) {
        masters.insert(record->uid);
        object.schedule.reminders.push_back(uidKey(record->uid));
        object.details.reminders.push_back(std::move(record));
    };
    const auto visit = [&](const ICalComponent &component) {
        auto record = readReminder(component, reader);
        if (!record)
            return;
        if (record->uid.isEmpty())
            record->uid = namelessUid;
        if (component.property("RECURRENCE-ID"))
            exceptions.push_back(std::move(record));
        else
            keep(std::move(record));
    };
    visitAll(root, "VTODO", visit);
    // A task that repeats is one reminder, that of its series.
    for (auto &each : exceptions) {
        if (!masters.contains(each->uid))
            keep(std::move(each));
    }
}

} // namespace

CalendarObject readCalendarObject(const QByteArray &text, const QStringList &userAddresses, const QString &namelessUid)
{
    CalendarObject object;
    const ICalDocument document = parseICalendar(text);
    PropertyReader reader(document.root);
    SeriesCollector series(reader);
    const auto visit = [&](const ICalComponent &component) {
        auto event = readEvent(component, reader, userAddresses);
        if (!event)
            return;
        if (event->item->uid.isEmpty())
            event->item->uid = namelessUid;
        series.add(std::move(*event));
    };
    visitAll(document.root, "VEVENT", visit);
    series.finish(object);
    readReminders(document.root, reader, namelessUid, object);
    const QStringList complaints = document.complaints.all() + reader.complaints().all();
    object.schedule.complaint = complaints.join(QStringLiteral("; ")).left(kLongestComplaint);
    return object;
}

} // namespace mintaro
