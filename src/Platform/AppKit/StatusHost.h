#pragma once

#include <QStringView>

namespace mintaro {

/// The programs that show status items, as far as they need different treatment.
enum class StatusHost {
    Unknown, ///< Not asked yet.
    None, ///< Nobody shows status items.
    Gnome,
    Xfce,
    Plasma,
    Lxqt,
    Waybar,
    Other,
};

/// The host behind a process name as the kernel keeps it (proc(5), comm: at most 15 bytes).
[[nodiscard]] StatusHost statusHostOfProcess(QStringView processName);

/// Whether the host paints a themed symbolic icon in its own text colour. The others get pixels.
[[nodiscard]] bool recolorsSymbolicIcons(StatusHost host);

/// The parts of a tooltip that a host reads as markup. There a bare & or < would empty the whole tooltip, and elsewhere
/// an escaped one is shown with its escapes.
enum class ToolTipMarkup {
    None,
    Text, ///< All but the title, as the StatusNotifierItem specification has it.
    TitleAndText,
};

[[nodiscard]] ToolTipMarkup toolTipMarkup(StatusHost host);

/// Whether the position that the host tells with a click is a point of the screen.
[[nodiscard]] bool tellsClickPosition(StatusHost host);

} // namespace mintaro
