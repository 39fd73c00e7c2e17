#pragma once

#include <QString>

namespace mintaro {

/// What a status item shows. All texts are plain.
struct StatusItemContent
{
    /// The day of the month, one or two digits, drawn in the square icon.
    QString day;
    /// Beside the icon, where the host can show a text there.
    QString label;
    /// The tooltip's first line. Some hosts show only this one, so it holds the essential.
    QString title;
    /// The tooltip's further lines.
    QString toolTip;

    friend bool operator==(const StatusItemContent &, const StatusItemContent &) = default;
};

} // namespace mintaro
