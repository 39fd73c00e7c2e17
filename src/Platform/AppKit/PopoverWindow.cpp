#include "Platform/AppKit/PopoverWindow.h"

#include "Platform/AppKit/OutsideClickMonitor.h"
#include "Platform/AppKit/PopoverPosition.h"
#include "Platform/AppKit/X11Window.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QQuickItem>
#include <QScreen>
#include <QTimer>

#include <chrono>

namespace mintaro {

namespace {

/// Longer than a panel needs to pass a click on, shorter than a user needs for the next.
constexpr qint64 kSameClickMs = 200;
/// How late Qt may tell that the keyboard went when the window was hidden, which it may be no more.
constexpr qint64 kLateNewsMs = 500;

} // namespace

PopoverWindow::PopoverWindow()
    // A popup would get no keys from several window managers, and a plain window would be in the task list.
    : CardWindow(kCardSize, Qt::Tool)
{
    connect(this, &QWindow::visibleChanged, this, &PopoverWindow::follow);
    connect(this, &QWindow::activeChanged, this, &PopoverWindow::followKeyboard);
}

PopoverWindow::~PopoverWindow()
{
    disconnect(this, nullptr, this, nullptr); // hiding at the end is nobody's business any more
}

void PopoverWindow::showAt(std::optional<QPoint> anchor)
{
    place(anchor);
    if (!isVisible()) {
        dressForDisplay();
        setUtilityState(*this);
        m_sinceShown.start();
        show();
    }
    raise();
    requestActivate();
}

void PopoverWindow::place(std::optional<QPoint> anchor)
{
    QScreen *onScreen = anchor ? QGuiApplication::screenAt(*anchor) : nullptr;
    if (!onScreen) {
        onScreen = QGuiApplication::primaryScreen();
    }
    setScreen(onScreen);
    setCardPosition(popoverPosition(anchor, onScreen->geometry(), onScreen->availableGeometry(), kCardSize));
}

void PopoverWindow::hidePopover()
{
    hide();
}

void PopoverWindow::hideForOutsideClick()
{
    if (isVisible()) {
        m_sinceOutsideClick.start();
        hide();
    }
}

void PopoverWindow::followKeyboard()
{
    if (isActive() || !isVisible()) {
        return;
    }
    const bool isCertain = QGuiApplication::focusWindow() != nullptr; // another one of ours
    const qint64 untilCertain = isCertain ? 0 : kLateNewsMs - m_sinceShown.elapsed();
    if (untilCertain > 0) {
        QTimer::singleShot(std::chrono::milliseconds(untilCertain), this, &PopoverWindow::followKeyboard);
    } else {
        hideForOutsideClick();
    }
}

void PopoverWindow::toggleAt(std::optional<QPoint> anchor)
{
    if (isVisible()) {
        hidePopover();
    } else if (!m_sinceOutsideClick.isValid() || m_sinceOutsideClick.elapsed() > kSameClickMs) {
        showAt(anchor);
    }
}

QRect PopoverWindow::cardGeometry() const
{
    return card().translated(position());
}

void PopoverWindow::follow(bool isVisible)
{
    if (isVisible) {
        m_clicks
            = std::make_unique<OutsideClickMonitor>([this](QPoint point) { return cardGeometry().contains(point); });
        connect(m_clicks.get(), &OutsideClickMonitor::clicked, this, &PopoverWindow::hideForOutsideClick);
        Q_EMIT opened();
    } else {
        m_clicks.release()->deleteLater(); // it may be the one that told of the click
        Q_EMIT closed();
    }
}

void PopoverWindow::keyPressEvent(QKeyEvent *event)
{
    QQuickWindow::keyPressEvent(event);
    const bool taken = event->isAccepted() && activeFocusItem();
    if (event->key() == Qt::Key_Escape && !taken) {
        hidePopover();
    }
}

void PopoverWindow::mousePressEvent(QMouseEvent *event)
{
    if (card().contains(event->position().toPoint())) {
        QQuickWindow::mousePressEvent(event);
    } else {
        hideForOutsideClick();
    }
}

} // namespace mintaro
