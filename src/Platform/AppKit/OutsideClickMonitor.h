#pragma once

#include <QObject>
#include <QPoint>

#include <functional>
#include <memory>

class QSocketNotifier;
struct xcb_connection_t;

namespace mintaro {

/// Tells of mouse clicks anywhere on an X11 display, the bare desktop included, without taking them from anybody: raw
/// events of the X Input Extension 2 on a connection of its own, open as long as the object lives. Elsewhere than on
/// X11 it stays silent.
class OutsideClickMonitor : public QObject
{
    Q_OBJECT

public:
    /// `isInside` tells which points of the screen do not count; asked when a button goes down.
    explicit OutsideClickMonitor(std::function<bool(QPoint)> isInside);
    ~OutsideClickMonitor() override;

Q_SIGNALS:
    /// A button that went down outside came up. By then the window below has had its click: panels act on the release.
    void clicked();

private:
    struct Disconnect
    {
        void operator()(xcb_connection_t *connection) const;
    };

    [[nodiscard]] bool selectEvents();
    void readEvents();
    void handle(int eventType, quint32 button);

    const std::function<bool(QPoint)> m_isInside;
    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    std::unique_ptr<QSocketNotifier> m_notifier;
    quint8 m_extension = 0;
    bool m_pressedOutside = false;
};

} // namespace mintaro
