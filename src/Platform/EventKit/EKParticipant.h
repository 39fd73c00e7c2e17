#pragma once

#include <QString>

namespace mintaro {

/// PARTSTAT of an attendee (RFC 5545 3.2.12), in EventKit's numbering.
enum class EKParticipantStatus {
    Unknown = 0,
    Pending = 1,
    Accepted = 2,
    Declined = 3,
    Tentative = 4,
    Delegated = 5,
    Completed = 6,
    InProcess = 7,
};

/// One ATTENDEE of an event.
struct EKParticipant
{
    QString name;
    /// The calendar user address as written, mostly "mailto:...".
    QString url;
    EKParticipantStatus participantStatus = EKParticipantStatus::Unknown;
    /// The address is one of the user's own.
    bool isCurrentUser = false;

    friend bool operator==(const EKParticipant &, const EKParticipant &) = default;
};

} // namespace mintaro
