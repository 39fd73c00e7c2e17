#include "Platform/EventKit/Index/ObjectCodec.h"

#include "Platform/EventKit/Index/Packing.h"

namespace mintaro {

template <typename Archive>
void pack(Archive &archive, Packed<Archive, EventTime> &time)
{
    archive(time.form, time.reading);
    if (time.isZoned())
        archive(time.zone);
}

template <typename Archive>
void pack(Archive &archive, Packed<Archive, EventLength> &length)
{
    archive(length.nominal, length.exact);
}

template <typename Archive>
void pack(Archive &archive, Packed<Archive, EventTiming> &timing)
{
    archive(timing.start, timing.length, timing.isCancelled, timing.item);
}

template <typename Archive>
void pack(Archive &archive, Packed<Archive, AddedDate> &date)
{
    archive(date.start, date.length);
}

template <typename Archive>
void pack(Archive &archive, Packed<Archive, SeriesException> &exception)
{
    archive(exception.recurrenceId, exception.thisAndFuture, exception.sequence, exception.timing);
}

template <typename Archive>
void pack(Archive &archive, Packed<Archive, RecurrenceRule::WeekdayNumber> &day)
{
    archive(day.day, day.ordinal);
}

template <typename Archive>
void pack(Archive &archive, Packed<Archive, RecurrenceRule::Until> &until)
{
    archive(until.reading, until.isUtc);
}

template <typename Archive>
void pack(Archive &archive, Packed<Archive, RecurrenceRule> &rule)
{
    archive(rule.frequency, rule.interval, rule.count, rule.until, rule.weekStart, rule.bySecond, rule.byMinute,
        rule.byHour, rule.byDay, rule.byMonthDay, rule.byYearDay, rule.byWeekNumber, rule.byMonth, rule.bySetPosition);
}

template <typename Archive>
void pack(Archive &archive, Packed<Archive, Recurrence> &recurrence)
{
    archive(recurrence.rules, recurrence.excludingRules, recurrence.addedDates, recurrence.excludedDates,
        recurrence.exceptions);
}

template <typename Archive>
void pack(Archive &archive, Packed<Archive, EventSeries> &series)
{
    bool repeats = series.recurrence != nullptr;
    archive(series.uid, series.master, repeats);
    if constexpr (!Archive::isWriting) {
        if (repeats)
            series.recurrence = std::make_unique<Recurrence>();
    }
    if (repeats)
        archive(*series.recurrence);
}

template <typename Archive>
void pack(Archive &archive, Packed<Archive, ObjectSchedule> &schedule)
{
    archive(schedule.events, schedule.reminders, schedule.complaint);
}

template <typename Archive>
void pack(Archive &archive, Packed<Archive, EKParticipant> &participant)
{
    archive(participant.name, participant.url, participant.participantStatus, participant.isCurrentUser);
}

template <typename Archive>
void pack(Archive &archive, Packed<Archive, EKAlarm> &alarm)
{
    archive(alarm.absoluteDate, alarm.relativeOffset);
}

template <typename Archive>
void pack(Archive &archive, Packed<Archive, EKRecurrenceRule> &rule)
{
    archive(rule.rule);
}

template <typename Archive>
void pack(Archive &archive, Packed<Archive, ReminderRecord> &record)
{
    archive(record.uid, record.title, record.notes, record.url, record.due, record.completionDate, record.isCompleted,
        record.isDamaged);
}

namespace {

/// All of an item but the texts that a search looks into.
template <typename Archive>
void packRest(Archive &archive, Packed<Archive, EventItem> &item)
{
    archive(item.uid, item.url, item.attendees, item.alarms, item.recurrenceRules, item.isAllDay, item.isDamaged);
}

template <typename T>
std::optional<T> unpack(QByteArrayView bytes)
{
    PackReader reader(bytes);
    T value;
    reader(value);
    return reader.failed() ? std::nullopt : std::optional(std::move(value));
}

} // namespace

QByteArray packSchedule(const ObjectSchedule &schedule)
{
    PackWriter writer;
    writer(schedule);
    return writer.bytes();
}

std::optional<ObjectSchedule> unpackSchedule(QByteArrayView bytes)
{
    return unpack<ObjectSchedule>(bytes);
}

QByteArray packDetails(const ObjectDetails &details)
{
    PackWriter writer;
    writer(details.items.size());
    for (const auto &item : details.items) {
        PackWriter rest;
        packRest(rest, *item);
        writer(item->title, item->location, item->notes, rest.bytes());
    }
    writer(details.reminders.size());
    for (const auto &record : details.reminders)
        writer(*record);
    return writer.bytes();
}

std::optional<ObjectDetails> unpackDetails(QByteArrayView bytes)
{
    PackReader reader(bytes);
    ObjectDetails details;
    std::int64_t count = 0;
    reader(count);
    for (; count > 0 && !reader.failed(); --count) {
        auto item = std::make_shared<EventItem>();
        QByteArray rest;
        reader(item->title, item->location, item->notes, rest);
        PackReader restReader(rest);
        packRest(restReader, *item);
        if (restReader.failed())
            return std::nullopt;
        details.items.push_back(std::move(item));
    }
    reader(count);
    for (; count > 0 && !reader.failed(); --count) {
        auto record = std::make_shared<ReminderRecord>();
        reader(*record);
        details.reminders.push_back(std::move(record));
    }
    return reader.failed() ? std::nullopt : std::optional(std::move(details));
}

void visitPackedTexts(QByteArrayView bytes, const TextVisitor &visit)
{
    PackReader reader(bytes);
    std::uint32_t count = 0;
    reader(count);
    for (std::uint32_t item = 0; item < count && !reader.failed(); ++item) {
        const QStringView title = reader.text();
        const QStringView location = reader.text();
        const QStringView notes = reader.text();
        std::int64_t rest = 0;
        reader(rest);
        reader.skip(rest);
        visit(item, title, location, notes);
    }
}

} // namespace mintaro
