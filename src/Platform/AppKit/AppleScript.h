#pragma once

#include "Platform/AppKit/CalendarApplication.h"

namespace mintaro {

/// A script in AppleScript, of which those statements are known that have a calendar program show a day; case does not
/// matter. To be used on the main thread.
class AppleScript
{
public:
    explicit AppleScript(QString source)
        : m_source(std::move(source))
    {
    }

    /// Acts on `application`, which must outlive the task, in place of the program "Calendar"; `today` is the script's
    /// "current date". Gives why it failed, or nothing. Where a statement is not known or makes no sense, nothing is
    /// done.
    [[nodiscard]] QCoro::Task<std::optional<QString>> execute(CalendarApplication &application, QDate today) const;

private:
    const QString m_source;
};

} // namespace mintaro
