#include "Platform/AppKit/X11Window.h"

#include <xcb/shape.h>
#include <xcb/xcb.h>

#include <QByteArray>
#include <QGuiApplication>
#include <QWindow>

#include <array>
#include <cstdlib>
#include <memory>

namespace mintaro {

namespace {

template <typename T>
using Reply = std::unique_ptr<T, decltype(&std::free)>;

/// Qt's own connection; null elsewhere than on X11.
xcb_connection_t *connection()
{
    const auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

xcb_atom_t atom(xcb_connection_t *x, const QByteArray &name)
{
    const auto cookie = xcb_intern_atom(x, 0, static_cast<std::uint16_t>(name.size()), name.constData());
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(x, cookie, nullptr), std::free);
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

QRect scaled(const QRect &rectangle, double ratio)
{
    return QRectF(QPointF(rectangle.topLeft()) * ratio, QSizeF(rectangle.size()) * ratio).toAlignedRect();
}

/// Of the display that DISPLAY names.
int screenNumber()
{
    char *host = nullptr;
    int display = 0;
    int screen = 0;
    xcb_parse_display(nullptr, &host, &display, &screen);
    std::free(host);
    return screen;
}

} // namespace

bool onX11()
{
    return connection() != nullptr;
}

bool hasCompositor()
{
    xcb_connection_t *x = connection();
    if (!x) {
        return true;
    }
    const auto cookie = xcb_get_selection_owner(x, atom(x, "_NET_WM_CM_S" + QByteArray::number(screenNumber())));
    const Reply<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(x, cookie, nullptr), std::free);
    return reply && reply->owner != XCB_WINDOW_NONE;
}

void setUtilityState(QWindow &window)
{
    xcb_connection_t *x = connection();
    if (!x) {
        return;
    }
    const std::array states { atom(x, "_NET_WM_STATE_SKIP_TASKBAR"), atom(x, "_NET_WM_STATE_SKIP_PAGER"),
        atom(x, "_NET_WM_STATE_ABOVE") };
    xcb_change_property(x, XCB_PROP_MODE_REPLACE, static_cast<xcb_window_t>(window.winId()), atom(x, "_NET_WM_STATE"),
        XCB_ATOM_ATOM, 32, states.size(), states.data());
}

void setVisibleArea(QWindow &window, const QRect &area)
{
    xcb_connection_t *x = connection();
    if (!x) {
        return;
    }
    const auto id = static_cast<xcb_window_t>(window.winId());
    const QRect pixels = scaled(area, window.devicePixelRatio());
    const QRect whole = scaled(QRect(QPoint(), window.size()), window.devicePixelRatio());
    const xcb_rectangle_t rectangle { static_cast<std::int16_t>(pixels.x()), static_cast<std::int16_t>(pixels.y()),
        static_cast<std::uint16_t>(pixels.width()), static_cast<std::uint16_t>(pixels.height()) };
    xcb_shape_rectangles(x, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT, XCB_CLIP_ORDERING_UNSORTED, id, 0, 0, 1, &rectangle);
    const std::array<std::int32_t, 4> leftRightTopBottom { pixels.left(), whole.right() - pixels.right(), pixels.top(),
        whole.bottom() - pixels.bottom() };
    xcb_change_property(x, XCB_PROP_MODE_REPLACE, id, atom(x, "_GTK_FRAME_EXTENTS"), XCB_ATOM_CARDINAL, 32,
        leftRightTopBottom.size(), leftRightTopBottom.data());
}

} // namespace mintaro
