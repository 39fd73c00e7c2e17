#pragma once

#include <QByteArray>

namespace mintaro {

/// One RRULE, whole: the value as it stands in the object (RFC 5545 3.3.10), so that nothing of it is lost where only
/// some of it is shown.
struct EKRecurrenceRule
{
    QByteArray rule;

    friend bool operator==(const EKRecurrenceRule &, const EKRecurrenceRule &) = default;
};

} // namespace mintaro
