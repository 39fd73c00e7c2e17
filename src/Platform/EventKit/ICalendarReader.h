#pragma once

#include "Platform/EventKit/CalendarObject.h"

#include <QStringList>

namespace mintaro {

/// Parses an object (RFC 5545 3.4), also one of many events or a bare component. `userAddresses`: the user's own e-mail
/// addresses in lower case. `namelessUid`: the UID of what brings none. Any text gives a result; a text that holds
/// nothing, an empty one with a complaint.
[[nodiscard]] CalendarObject readCalendarObject(
    const QByteArray &text, const QStringList &userAddresses, const QString &namelessUid = QString());

} // namespace mintaro
