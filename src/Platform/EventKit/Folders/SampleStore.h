#pragma once

#include "Platform/Foundation/Calendar.h"

#include <QString>

namespace mintaro {

/// A store to look at: a fortnight of somebody's life round the present moment. The templates are collections of .ics
/// files below a folder for each source, with placeholders for what depends on the moment:
///
///     {{+1d 10:00}}     clock reading tomorrow; {{+1d}} the date alone
///     {{-2b 09:30}}     two working days (Monday to Friday) ago
///     {{sat+1 11:00}}   Saturday of next week; weeks begin on Monday
///     {{now+12m}}       in twelve minutes, from the present moment rounded up to the full minute
///     {{utc +1d 10:00}} the same reading as UTC time, for any of these that has a time
///     {{zone}}          the calendar's time zone
class SampleStore
{
public:
    /// Where the templates are: in the source tree that this was built from. They are not installed.
    [[nodiscard]] static QString templateFolder();

    /// Copies the templates to `target`, a folder that is new or empty, with all dates filled in; nothing is left there
    /// on failure. Each source becomes a root, and `target`/config/mintaro/store.conf names them and the user's
    /// address, so that XDG_CONFIG_HOME=`target`/config shows them. Throws EKError.
    static void write(const QString &templateFolder, const QString &target, Date now, const Calendar &calendar);
};

} // namespace mintaro
