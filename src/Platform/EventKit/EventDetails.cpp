#include "Platform/EventKit/EventDetails.h"

#include "Platform/EventKit/ICalValue.h"

#include <QHash>

#include <algorithm>
#include <array>

namespace mintaro {

using namespace std::chrono;

namespace {

EKParticipantStatus statusOf(const ICalProperty &attendee)
{
    using Status = EKParticipantStatus;
    static const QHash<QString, Status> statuses { { QStringLiteral("NEEDS-ACTION"), Status::Pending },
        { QStringLiteral("ACCEPTED"), Status::Accepted }, { QStringLiteral("DECLINED"), Status::Declined },
        { QStringLiteral("TENTATIVE"), Status::Tentative }, { QStringLiteral("DELEGATED"), Status::Delegated },
        { QStringLiteral("COMPLETED"), Status::Completed }, { QStringLiteral("IN-PROCESS"), Status::InProcess } };
    const auto status = attendee.parameter("PARTSTAT");
    return status ? statuses.value(QString::fromLatin1(*status).toUpper(), Status::Unknown) : Status::Pending;
}

QString addressOf(const QString &uri)
{
    const QLatin1String scheme("mailto:");
    const QString text = uri.trimmed();
    return (text.startsWith(scheme, Qt::CaseInsensitive) ? text.mid(scheme.size()) : text).toLower();
}

EKParticipant readAttendee(const ICalProperty &property, const QStringList &userAddresses)
{
    EKParticipant participant;
    participant.url = decodeText(property.value);
    participant.participantStatus = statusOf(property);
    participant.name = readParameter(property, "CN");
    participant.isCurrentUser = isOneOf(property, userAddresses);
    return participant;
}

bool isLink(const QString &text)
{
    return text.startsWith(u"https://", Qt::CaseInsensitive) || text.startsWith(u"http://", Qt::CaseInsensitive);
}

/// Servers' own names for the link of a meeting.
bool namesMeeting(QByteArrayView property)
{
    constexpr std::array<QByteArrayView, 7> names { "X-GOOGLE-CONFERENCE", "X-MICROSOFT-SKYPETEAMSMEETINGURL",
        "X-MICROSOFT-ONLINEMEETINGEXTERNALLINK", "X-MICROSOFT-ONLINEMEETINGCONFLINK", "X-ZOOM-MEETING-URL",
        "X-MEETING-URL", "X-CONFERENCE-URL" };
    return std::find(names.begin(), names.end(), property) != names.end();
}

QString readLink(const ICalComponent &component)
{
    const QString url = PropertyReader::text(component, "URL");
    if (!url.isEmpty())
        return url;
    QString own;
    for (const ICalProperty &each : component.properties) {
        const bool isConference = each.name == "CONFERENCE";
        if (!isConference && (!own.isNull() || !namesMeeting(each.name)))
            continue;
        const QString link = readText(each);
        if (isLink(link) && isConference)
            return link;
        if (isLink(link))
            own = link;
    }
    return own;
}

} // namespace

std::optional<EKAlarm> readAlarm(const ICalComponent &alarm, const EventLength &length, PropertyReader &reader)
{
    const ICalProperty *trigger = alarm.property("TRIGGER");
    // ACTION:NONE stands for "no alarm" in what some programs write.
    if (!trigger || PropertyReader::text(alarm, "ACTION").compare(u"NONE", Qt::CaseInsensitive) == 0)
        return std::nullopt;
    EKAlarm result;
    if (const auto offset = parseDuration(trigger->value)) {
        const seconds total = offset->length.total();
        result.relativeOffset = offset->isNegative ? -total : total;
        if (readParameter(*trigger, "RELATED").compare(u"END", Qt::CaseInsensitive) == 0)
            result.relativeOffset += length.total();
        return result;
    }
    const auto at = reader.time(*trigger, trigger->value);
    if (at)
        result.absoluteDate = at->instant(TimeZone());
    return at ? std::optional(result) : std::nullopt;
}

bool isOneOf(const ICalProperty &person, const QStringList &addresses)
{
    // Servers give their own principals as addresses, with the e-mail address beside (RFC 7986 6.2).
    return addresses.contains(addressOf(decodeText(person.value)))
        || addresses.contains(addressOf(readParameter(person, "EMAIL")));
}

void readDetails(const ICalComponent &component, PropertyReader &reader, const QStringList &userAddresses,
    const EventLength &length, EventItem &item)
{
    item.title = PropertyReader::text(component, "SUMMARY");
    item.location = PropertyReader::text(component, "LOCATION");
    item.notes = PropertyReader::text(component, "DESCRIPTION");
    item.url = readLink(component);
    component.forEachProperty("ATTENDEE",
        [&](const ICalProperty &property) { item.attendees.push_back(readAttendee(property, userAddresses)); });
    component.forEachComponent("VALARM", [&](const ICalComponent &alarm) {
        if (const auto read = readAlarm(alarm, length, reader))
            item.alarms.push_back(*read);
    });
}

} // namespace mintaro
