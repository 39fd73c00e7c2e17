#include "Platform/AppKit/NotificationWindow.h"

#include "Platform/AppKit/X11Window.h"

#include <QGuiApplication>
#include <QScreen>

namespace mintaro {

namespace {

/// To the edges of the screen and to each other.
constexpr int kGap = 12;

} // namespace

NotificationWindow::NotificationWindow(const QSize &contentSize)
    : CardWindow(contentSize, Qt::Tool | Qt::WindowDoesNotAcceptFocus)
{
}

int NotificationWindow::stackingHeight() const
{
    return card().height() + kGap;
}

void NotificationWindow::showBelow(int distance)
{
    const QScreen *primary = QGuiApplication::primaryScreen();
    if (!primary)
        return;
    const QRect available = primary->availableGeometry();
    QRect place(QPoint(), card().size());
    place.moveTopRight(available.topRight() + QPoint(-kGap, kGap + distance));
    if (distance > 0 && place.bottom() > available.bottom()) {
        hide();
        return;
    }
    setCardPosition(place.topLeft());
    if (!isVisible()) {
        dressForDisplay();
        setUtilityState(*this);
        show();
    }
}

void NotificationWindow::closeEvent(QCloseEvent *event)
{
    CardWindow::closeEvent(event);
    Q_EMIT closed();
}

} // namespace mintaro
