#include "Platform/EventKit/Writing/ReminderEditor.h"

#include "Platform/EventKit/SeriesClock.h"
#include "Platform/EventKit/StoreBackend.h"
#include "Platform/EventKit/Writing/CalendarNode.h"
#include "Platform/EventKit/Writing/EventWriter.h"
#include "Platform/EventKit/Writing/SeriesWriter.h"

#include <algorithm>

namespace mintaro {

using namespace std::chrono;

namespace {

/// One of the objects, with the tasks of the UID in it.
struct TaskObject
{
    ObjectText original;
    ICalNode root;
    struct Task
    {
        ICalNode *node;
        const ICalNode *calendar;
    };
    std::vector<Task> tasks {};

    void collect(ICalNode &parent, const QString &uid)
    {
        for (ICalNode &child : parent.children()) {
            if (child.isComponent("VCALENDAR"))
                collect(child, uid);
            if (!child.isComponent("VTODO"))
                continue;
            const QString own = PropertyReader::text(child.asComponent(), "UID").trimmed();
            if ((own.isEmpty() ? original.name : own) == uid)
                tasks.push_back({ &child, &parent });
        }
    }

    [[nodiscard]] ObjectChange change() const
    {
        ObjectChange change { original.name, original.text, std::nullopt };
        if (countItems(root) > 0)
            change.text = root.text();
        return change;
    }
};

std::vector<TaskObject> readTasks(std::vector<ObjectText> objects, const QString &uid)
{
    std::vector<TaskObject> read;
    for (ObjectText &each : objects) {
        ICalNode root = ICalNode::parse(each.text);
        TaskObject object { std::move(each), std::move(root) };
        object.collect(object.root, uid);
        if (!object.tasks.empty())
            read.push_back(std::move(object));
    }
    if (read.empty())
        throw EKError("The reminder no longer exists.");
    return read;
}

/// The task that stands for all of its UID.
const TaskObject::Task &masterOf(const TaskObject &object)
{
    const auto isMaster = [](const TaskObject::Task &task) { return !task.node->find("RECURRENCE-ID"); };
    const auto found = std::find_if(object.tasks.begin(), object.tasks.end(), isMaster);
    return found == object.tasks.end() ? object.tasks.front() : *found;
}

/// The task again for its next time; empty where there is none. Tasks may count from their DUE alone.
std::optional<ICalNode> nextTask(const ICalNode &task, const ICalComponent &zones)
{
    ICalNode node = task;
    const ICalProperty *due = task.find("DUE");
    const bool hasStart = task.find("DTSTART");
    if (!task.find("RRULE") || (!hasStart && !due))
        return std::nullopt;
    if (!hasStart)
        node.add(ICalNode::makeProperty("DTSTART", due->parameters.toByteArray(), due->value.toByteArray()));
    const EventComponent read = readAgain(node, zones);
    const EventTime &start = read.timing.start;
    const std::int64_t key = SeriesClock::keyOf(start);
    constexpr seconds reach = days { 50 * 366 };
    const std::vector<SeriesStart> starts = startsOf(read, windowAround(key, key + reach.count()));
    const auto next
        = std::find_if(starts.begin(), starts.end(), [key](const SeriesStart &each) { return each.key > key; });
    if (next == starts.end())
        return std::nullopt;
    ICalNode continued = continuedSeries(node, read, next->reading, zones);
    if (due) {
        PropertyReader reader(zones);
        const auto time = reader.time(*due, due->value);
        if (!time)
            throw EKError("The time of the reminder cannot be read.");
        const LocalTime moved = time->reading + (next->reading - start.reading);
        const TimeStyle style(*due, *time);
        continued.set(ICalNode::makeProperty("DUE", due->parameters.toByteArray(), style.value(moved)));
    }
    if (!hasStart)
        continued.removeProperties("DTSTART");
    return continued;
}

void writeCompletion(ICalNode &task, bool isCompleted, const std::optional<Date> &completionDate)
{
    if (!isCompleted) {
        task.removeProperties("COMPLETED");
        task.removeProperties("PERCENT-COMPLETE");
        const ICalProperty *status = task.find("STATUS");
        if (status && withoutBlanks(status->value).compare("COMPLETED", Qt::CaseInsensitive) == 0)
            task.set(ICalNode::makeProperty("STATUS", {}, "NEEDS-ACTION"));
        return;
    }
    task.set(ICalNode::makeProperty("STATUS", {}, "COMPLETED"));
    task.set(ICalNode::makeProperty("PERCENT-COMPLETE", {}, "100"));
    if (completionDate)
        task.set(ICalNode::makeProperty("COMPLETED", {}, writeUtc(floor<seconds>(*completionDate))));
}

} // namespace

StoreEdit completeReminder(std::vector<ObjectText> objects, const QString &uid, bool isCompleted,
    const std::optional<Date> &completionDate, const EditContext &context)
{
    std::vector<TaskObject> read = readTasks(std::move(objects), uid);
    TaskObject &object = read.front();
    const TaskObject::Task &task = masterOf(object);
    if (task.node->isDamaged() || task.calendar->isDamaged())
        throw EKError("Part of this reminder cannot be read, so it was left unchanged to avoid losing anything.");
    StoreEdit edit;
    edit.uid = uid;
    const ICalComponent zones = object.root.asComponent();
    if (isCompleted) {
        if (auto next = nextTask(*task.node, zones)) {
            const QString newUid = context.newUid();
            writeUid(*next, newUid);
            writeChangeTime(*next, context.now);
            edit.created = NewObject { newUid, newCalendar({ std::move(*next) }, *task.calendar).text() };
        }
        removeRecurrence(*task.node);
    }
    writeCompletion(*task.node, isCompleted, completionDate);
    writeChangeTime(*task.node, context.now);
    raiseSequence(*task.node, context.userAddresses);
    edit.changes.push_back(object.change());
    return edit;
}

StoreEdit removeReminder(std::vector<ObjectText> objects, const QString &uid)
{
    StoreEdit edit;
    edit.uid = uid;
    std::vector<TaskObject> read = readTasks(std::move(objects), uid);
    for (TaskObject &object : read) {
        for (const TaskObject::Task &task : object.tasks)
            task.node->clear();
        edit.changes.push_back(object.change());
    }
    return edit;
}

} // namespace mintaro
