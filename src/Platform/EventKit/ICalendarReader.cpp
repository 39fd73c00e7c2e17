#include "Platform/EventKit/ICalendarReader.h"

#include "Platform/EventKit/EventReader.h"
#include "Platform/EventKit/ICalHandle.h"
#include "Platform/EventKit/ICalendarText.h"
#include "Platform/EventKit/PropertyReader.h"

#include <algorithm>
#include <map>
#include <set>

namespace mintaro {

namespace {

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
            m_exceptions[event.item->uid].push_back(std::move(*event.exception));
        else if (m_uids.insert(event.item->uid).second)
            m_masters.push_back(std::move(event));
        else
            addDuplicate(std::move(event));
    }

    std::vector<EventSeries> finish()
    {
        std::vector<EventSeries> result;
        for (auto &master : m_masters) {
            const auto found = m_exceptions.find(master.item->uid);
            if (found != m_exceptions.end()) {
                adopt(master, std::move(found->second));
                m_exceptions.erase(found);
            }
            result.push_back({ std::move(master.item), std::move(master.recurrence) });
        }
        for (auto &[uid, orphans] : m_exceptions) {
            result.push_back({ nullptr, std::make_unique<Recurrence>() });
            result.back().recurrence->exceptions = withoutOutdated(std::move(orphans));
        }
        return result;
    }

private:
    void addDuplicate(EventComponent event)
    {
        m_reader.complain(QStringLiteral("UID \"%1\" more than once").arg(event.item->uid));
        m_masters.push_back(std::move(event));
    }

    static std::vector<SeriesException> withoutOutdated(std::vector<SeriesException> exceptions)
    {
        // Of two exceptions for the same occurrence the one of the higher SEQUENCE holds, else the later one.
        std::vector<SeriesException> result;
        for (auto &each : exceptions) {
            const auto same = std::find_if(result.begin(), result.end(),
                [&each](const SeriesException &other) { return other.recurrenceId == each.recurrenceId; });
            if (same == result.end())
                result.push_back(std::move(each));
            else if (each.sequence >= same->sequence)
                *same = std::move(each);
        }
        return result;
    }

    static void adopt(EventComponent &master, std::vector<SeriesException> exceptions)
    {
        if (!master.recurrence)
            master.recurrence = std::make_unique<Recurrence>();
        for (const auto &exception : exceptions)
            exception.item->recurrenceRules = master.item->recurrenceRules;
        master.recurrence->exceptions = withoutOutdated(std::move(exceptions));
    }

    PropertyReader &m_reader;
    std::vector<EventComponent> m_masters;
    std::set<QString> m_uids;
    std::map<QString, std::vector<SeriesException>> m_exceptions;
};

/// Visits the components of a kind in the calendars of a text, however they are wrapped.
template <typename Visit>
void visitKind(icalcomponent *component, icalcomponent_kind kind, Visit &visit)
{
    const icalcomponent_kind own = icalcomponent_isa(component);
    if (own == kind)
        visit(component);
    if (own != ICAL_VCALENDAR_COMPONENT && own != ICAL_XROOT_COMPONENT)
        return;
    ical::forEachComponent(component, ICAL_ANY_COMPONENT, [&](icalcomponent *child) { visitKind(child, kind, visit); });
}

void readReminders(icalcomponent *root, PropertyReader &reader, CalendarObject &object)
{
    QStringList masters;
    std::vector<std::shared_ptr<ReminderRecord>> exceptions;
    const auto visit = [&](icalcomponent *component) {
        auto record = readReminder(component, reader);
        if (!record)
            return;
        if (icalcomponent_get_first_property(component, ICAL_RECURRENCEID_PROPERTY)) {
            exceptions.push_back(std::move(record));
        } else {
            masters.append(record->uid);
            object.reminders.push_back(std::move(record));
        }
    };
    visitKind(root, ICAL_VTODO_COMPONENT, visit);
    // A task that repeats is one reminder, that of its series.
    for (auto &each : exceptions) {
        if (!masters.contains(each->uid)) {
            masters.append(each->uid);
            object.reminders.push_back(std::move(each));
        }
    }
}

} // namespace

CalendarObject readCalendarObject(const QByteArray &text, const QStringList &userAddresses)
{
    CalendarObject object;
    if (const auto refusal = refusalOf(text)) {
        object.complaints.append(*refusal);
        return object;
    }
    icalerror_set_errors_are_fatal(0);
    // libical stops at a NUL, and takes a byte order mark for a part of the first name.
    QByteArray clean = text.startsWith("\xEF\xBB\xBF") ? text.mid(3) : text;
    clean.replace('\0', QByteArray());
    const ical::ComponentHandle root(icalparser_parse_string(clean.constData()));
    if (!root) {
        object.complaints.append(QStringLiteral("no iCalendar object"));
        return object;
    }
    PropertyReader reader(root.get());
    SeriesCollector series(reader);
    const auto visit = [&](icalcomponent *component) {
        if (auto event = readEvent(component, reader, userAddresses))
            series.add(std::move(*event));
    };
    visitKind(root.get(), ICAL_VEVENT_COMPONENT, visit);
    object.events = series.finish();
    readReminders(root.get(), reader, object);
    object.complaints = reader.complaints();
    return object;
}

} // namespace mintaro
