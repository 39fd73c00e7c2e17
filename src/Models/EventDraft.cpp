#include "Models/EventDraft.h"

namespace mintaro {

namespace {

template <typename T>
std::optional<T> first(const std::vector<T> &values)
{
    return values.empty() ? std::nullopt : std::optional(values.front());
}

} // namespace

EventDraft EventDraft::fromEvent(const EKEvent &event)
{
    return { .title = event.title().value_or(QString()),
        .startDate = event.startDate(),
        .endDate = event.endDate(),
        .isAllDay = event.isAllDay(),
        .location = event.location().value_or(QString()),
        .notes = event.notes().value_or(QString()),
        .calendarID = event.calendar() ? std::optional(event.calendar()->calendarIdentifier) : std::nullopt,
        .recurrenceRule = first(event.recurrenceRules()),
        .alarm = first(event.alarms()) };
}

EventDraft EventDraft::withEdits(const EventDraft &base, const EventDraft &edited) const
{
    EventDraft result = *this;
    const auto take = [&](auto EventDraft::*field) {
        if (base.*field != edited.*field)
            result.*field = edited.*field;
    };
    take(&EventDraft::title);
    take(&EventDraft::startDate);
    take(&EventDraft::endDate);
    take(&EventDraft::isAllDay);
    take(&EventDraft::location);
    take(&EventDraft::notes);
    take(&EventDraft::calendarID);
    take(&EventDraft::recurrenceRule);
    take(&EventDraft::alarm);
    return result;
}

} // namespace mintaro
