#include "Platform/AppKit/Panel.h"

#include "Platform/AppKit/PointerScreen.h"

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
    QScreen *const onScreen = screenWithPointer();
    setScreen(onScreen);
    showAround(onScreen->availableGeometry().center());
}

void Panel::showOver(QWindow &owner)
{
    // It belongs to its owner, and stays above nothing else.
    setFlag(Qt::WindowStaysOnTopHint, false);
    setModality(Qt::WindowModal);
    setTransientParent(&owner);
    setScreen(owner.screen());
    const auto follow = [this, &owner] { moveAround(owner.geometry().center()); };
    connect(&owner, &QWindow::xChanged, this, follow);
    connect(&owner, &QWindow::yChanged, this, follow);
    // A click on the owner gives that the keyboard, with which nothing could be done there.
    connect(&owner, &QWindow::activeChanged, this, [this, &owner] {
        if (isVisible() && owner.isActive()) {
            requestActivate();
        }
    });
    showAround(owner.geometry().center());
}

void Panel::moveAround(QPoint center)
{
    QRect geometry(QPoint(), card().size());
    geometry.moveCenter(center);
    setCardPosition(geometry.topLeft());
}

void Panel::showAround(QPoint center)
{
    moveAround(center);
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
