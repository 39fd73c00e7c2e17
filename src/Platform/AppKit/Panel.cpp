#include "Platform/AppKit/Panel.h"

#include <QCursor>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QScreen>
#include <QStyleHints>

namespace mintaro {

Panel::Panel(const QSize &contentSize)
    // Window managers that tile let dialogs float.
    : CardWindow(contentSize, Qt::Dialog)
{
}

void Panel::showCentered()
{
    QScreen *onScreen = QGuiApplication::screenAt(QCursor::pos());
    if (!onScreen) {
        onScreen = QGuiApplication::primaryScreen();
    }
    setScreen(onScreen);
    QRect geometry(QPoint(), card().size());
    geometry.moveCenter(onScreen->availableGeometry().center());
    setCardPosition(geometry.topLeft());
    dressForDisplay();
    show();
    raise();
    requestActivate();
}

void Panel::closeEvent(QCloseEvent *event)
{
    CardWindow::closeEvent(event);
    Q_EMIT closed();
}

void Panel::mousePressEvent(QMouseEvent *event)
{
    CardWindow::mousePressEvent(event);
    const bool isBackground = event->button() == Qt::LeftButton && !event->exclusiveGrabber(event->point(0));
    m_pressed = isBackground ? std::optional(event->position().toPoint()) : std::nullopt;
}

void Panel::mouseMoveEvent(QMouseEvent *event)
{
    CardWindow::mouseMoveEvent(event);
    if (!m_pressed || !(event->buttons() & Qt::LeftButton) || event->exclusiveGrabber(event->point(0))) {
        return;
    }
    const int distance = (event->position().toPoint() - *m_pressed).manhattanLength();
    if (distance >= QGuiApplication::styleHints()->startDragDistance()) {
        m_pressed.reset();
        startSystemMove();
    }
}

} // namespace mintaro
