#pragma once

#include <QRect>

class QWindow;

namespace mintaro {

/// Whether the program's windows are X11 windows.
[[nodiscard]] bool onX11();

/// Whether somebody blends windows with what is below them. Always so where windows are not X11 windows.
[[nodiscard]] bool hasCompositor();

/// Keeps a window that is about to be shown above the others and out of task lists and pagers (EWMH, _NET_WM_STATE). To
/// be repeated for each showing, since the window manager clears it at hiding. Does nothing elsewhere than on X11.
void setUtilityState(QWindow &window);

/// Declares all of a window beside `area`, in the window's coordinates, to be shadow: clicks there go to the windows
/// below, and window managers that know _GTK_FRAME_EXTENTS place the window by its area. Does nothing elsewhere than on
/// X11.
void setVisibleArea(QWindow &window, const QRect &area);

} // namespace mintaro
