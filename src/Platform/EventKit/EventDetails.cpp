#include "Platform/EventKit/EventDetails.h"

#include "Platform/EventKit/ICalendarText.h"

#include <array>

namespace mintaro {

using namespace std::chrono;

namespace {

EKParticipantStatus statusOf(icalproperty *attendee)
{
    icalparameter *parameter = icalproperty_get_first_parameter(attendee, ICAL_PARTSTAT_PARAMETER);
    if (!parameter)
        return EKParticipantStatus::Pending;
    switch (icalparameter_get_partstat(parameter)) {
    case ICAL_PARTSTAT_NEEDSACTION:
        return EKParticipantStatus::Pending;
    case ICAL_PARTSTAT_ACCEPTED:
        return EKParticipantStatus::Accepted;
    case ICAL_PARTSTAT_DECLINED:
        return EKParticipantStatus::Declined;
    case ICAL_PARTSTAT_TENTATIVE:
        return EKParticipantStatus::Tentative;
    case ICAL_PARTSTAT_DELEGATED:
        return EKParticipantStatus::Delegated;
    case ICAL_PARTSTAT_COMPLETED:
        return EKParticipantStatus::Completed;
    case ICAL_PARTSTAT_INPROCESS:
        return EKParticipantStatus::InProcess;
    default:
        return EKParticipantStatus::Unknown;
    }
}

QString addressOf(const QString &uri)
{
    const QLatin1String scheme("mailto:");
    const QString text = uri.trimmed();
    return (text.startsWith(scheme, Qt::CaseInsensitive) ? text.mid(scheme.size()) : text).toLower();
}

EKParticipant readAttendee(icalproperty *property, const QStringList &userAddresses)
{
    EKParticipant participant;
    participant.url = decodeText(icalproperty_get_attendee(property));
    participant.participantStatus = statusOf(property);
    participant.isCurrentUser = userAddresses.contains(addressOf(participant.url));
    if (icalparameter *name = icalproperty_get_first_parameter(property, ICAL_CN_PARAMETER))
        participant.name = decodeText(icalparameter_get_cn(name));
    // Servers give their own principals as addresses, with the e-mail address beside (RFC 7986 6.2).
    if (icalparameter *mail = icalproperty_get_first_parameter(property, ICAL_EMAIL_PARAMETER)) {
        const QString address = addressOf(decodeText(icalparameter_get_email(mail)));
        participant.isCurrentUser = participant.isCurrentUser || userAddresses.contains(address);
    }
    return participant;
}

std::optional<EKAlarm> readAlarm(icalcomponent *alarm, const EventLength &length, PropertyReader &reader)
{
    icalproperty *trigger = icalcomponent_get_first_property(alarm, ICAL_TRIGGER_PROPERTY);
    icalproperty *action = icalcomponent_get_first_property(alarm, ICAL_ACTION_PROPERTY);
    // ACTION:NONE stands for "no alarm" in what some programs write.
    if (!trigger || (action && rawValue(action).toUpper() == "NONE"))
        return std::nullopt;
    const icaltriggertype value = icalproperty_get_trigger(trigger);
    EKAlarm result;
    if (!icaltime_is_null_time(value.time)) {
        const auto at = reader.time(trigger, value.time);
        if (at)
            result.absoluteDate = at->instant(TimeZone());
        return at ? std::optional(result) : std::nullopt;
    }
    if (icaldurationtype_is_bad_duration(value.duration))
        return std::nullopt;
    result.relativeOffset = seconds { icaldurationtype_as_int(value.duration) };
    icalparameter *related = icalproperty_get_first_parameter(trigger, ICAL_RELATED_PARAMETER);
    if (related && icalparameter_get_related(related) == ICAL_RELATED_END)
        result.relativeOffset += length.total();
    return result;
}

bool isLink(const QString &text)
{
    return text.startsWith(u"https://", Qt::CaseInsensitive) || text.startsWith(u"http://", Qt::CaseInsensitive);
}

/// Servers' own names for the link of a meeting.
bool namesMeeting(const char *property)
{
    constexpr std::array names { "X-GOOGLE-CONFERENCE", "X-MICROSOFT-SKYPETEAMSMEETINGURL",
        "X-MICROSOFT-ONLINEMEETINGEXTERNALLINK", "X-MICROSOFT-ONLINEMEETINGCONFLINK", "X-ZOOM-MEETING-URL",
        "X-MEETING-URL", "X-CONFERENCE-URL" };
    return std::any_of(
        names.begin(), names.end(), [property](const char *name) { return qstricmp(property, name) == 0; });
}

QString readLink(icalcomponent *component, PropertyReader &reader)
{
    const QString url = reader.text(component, ICAL_URL_PROPERTY);
    if (!url.isEmpty())
        return url;
    QString link;
    const auto take = [&link](const QString &candidate) {
        if (link.isNull() && isLink(candidate))
            link = candidate;
    };
    ical::forEachProperty(component, ICAL_CONFERENCE_PROPERTY,
        [&take](icalproperty *property) { take(decodeText(icalproperty_get_conference(property))); });
    ical::forEachProperty(component, ICAL_X_PROPERTY, [&take](icalproperty *property) {
        if (namesMeeting(icalproperty_get_x_name(property)))
            take(decodeText(icalproperty_get_x(property)));
    });
    return link;
}

} // namespace

void readDetails(icalcomponent *component, PropertyReader &reader, const QStringList &userAddresses,
    const EventLength &length, EventItem &item)
{
    item.title = reader.text(component, ICAL_SUMMARY_PROPERTY);
    item.location = reader.text(component, ICAL_LOCATION_PROPERTY);
    item.notes = reader.text(component, ICAL_DESCRIPTION_PROPERTY);
    item.url = readLink(component, reader);
    ical::forEachProperty(component, ICAL_ATTENDEE_PROPERTY,
        [&](icalproperty *property) { item.attendees.push_back(readAttendee(property, userAddresses)); });
    ical::forEachComponent(component, ICAL_VALARM_COMPONENT, [&](icalcomponent *alarm) {
        if (const auto read = readAlarm(alarm, length, reader))
            item.alarms.push_back(*read);
    });
}

} // namespace mintaro
