#include "Platform/AppKit/OutsideClickMonitor.h"

#include "Platform/AppKit/X11Window.h"
#include "Platform/Foundation/Logger.h"

#include <xcb/xcb.h>
#include <xcb/xinput.h>

#include <QCursor>
#include <QPointer>
#include <QSocketNotifier>

#include <cstdlib>
#include <utility>

namespace mintaro {

namespace {

/// Above these lie the wheel's.
constexpr quint32 kLastRealButton = XCB_BUTTON_INDEX_3;

template <typename T>
using Reply = std::unique_ptr<T, decltype(&std::free)>;

/// From 2.1 on raw events come also while another program holds a grab, as panels do for their menus.
bool speaksVersion21(xcb_connection_t *x)
{
    const auto cookie = xcb_input_xi_query_version(x, 2, 1);
    const Reply<xcb_input_xi_query_version_reply_t> reply(
        xcb_input_xi_query_version_reply(x, cookie, nullptr), std::free);
    return reply
        && std::pair(reply->major_version, reply->minor_version) >= std::pair<std::uint16_t, std::uint16_t>(2, 1);
}

} // namespace

OutsideClickMonitor::OutsideClickMonitor(std::function<bool(QPoint)> isInside)
    : m_isInside(std::move(isInside))
{
    if (!onX11()) {
        return;
    }
    m_connection.reset(xcb_connect(nullptr, nullptr));
    if (xcb_connection_has_error(m_connection.get()) || !selectEvents()) {
        Logger(QStringLiteral("Panel")).error(QStringLiteral("Clicks on the desktop cannot be seen"));
        return;
    }
    m_notifier = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(m_connection.get()), QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &OutsideClickMonitor::readEvents);
}

OutsideClickMonitor::~OutsideClickMonitor() = default;

void OutsideClickMonitor::Disconnect::operator()(xcb_connection_t *connection) const
{
    xcb_disconnect(connection);
}

bool OutsideClickMonitor::selectEvents()
{
    xcb_connection_t *x = m_connection.get();
    const xcb_query_extension_reply_t *extension = xcb_get_extension_data(x, &xcb_input_id);
    if (!extension || !extension->present || !speaksVersion21(x)) {
        return false;
    }
    m_extension = extension->major_opcode;
    struct
    {
        xcb_input_event_mask_t head { XCB_INPUT_DEVICE_ALL_MASTER, 1 };
        std::uint32_t mask = XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS | XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_RELEASE;
    } selection;
    for (auto it = xcb_setup_roots_iterator(xcb_get_setup(x)); it.rem > 0; xcb_screen_next(&it)) {
        xcb_input_xi_select_events(x, it.data->root, 1, &selection.head);
    }
    return xcb_flush(x) > 0;
}

void OutsideClickMonitor::readEvents()
{
    const QPointer<OutsideClickMonitor> self(this); // who hears of a click may drop the monitor
    while (self) {
        const Reply<xcb_generic_event_t> event(xcb_poll_for_event(m_connection.get()), std::free);
        if (!event) {
            break;
        }
        if ((event->response_type & 0x7f) == XCB_GE_GENERIC) {
            const auto *raw = reinterpret_cast<const xcb_input_raw_button_press_event_t *>(event.get());
            if (raw->extension == m_extension) {
                handle(raw->event_type, raw->detail);
            }
        }
    }
    if (self && xcb_connection_has_error(m_connection.get())) {
        m_notifier->setEnabled(false); // the display is gone; a dead socket would be readable for ever
    }
}

void OutsideClickMonitor::handle(int eventType, quint32 button)
{
    if (button > kLastRealButton) {
        return;
    }
    if (eventType == XCB_INPUT_RAW_BUTTON_PRESS) {
        m_pressedOutside = !m_isInside(QCursor::pos());
    } else if (eventType == XCB_INPUT_RAW_BUTTON_RELEASE && std::exchange(m_pressedOutside, false)) {
        Q_EMIT clicked();
    }
}

} // namespace mintaro
