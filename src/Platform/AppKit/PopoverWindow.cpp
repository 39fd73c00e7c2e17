#include "Platform/AppKit/PopoverWindow.h"

#include "Platform/AppKit/CardShadow.h"
#include "Platform/AppKit/OutsideClickMonitor.h"
#include "Platform/AppKit/PopoverPosition.h"
#include "Platform/AppKit/X11Window.h"

#include <QBitmap>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainterPath>
#include <QPolygon>
#include <QQuickItem>
#include <QScreen>
#include <QSurfaceFormat>

namespace mintaro {

namespace {

constexpr int kMargin = CardShadow::kMargin;
constexpr QRect kCard { QPoint(kMargin, kMargin), PopoverWindow::kCardSize };
/// Longer than a panel needs to pass a click on, shorter than a user needs for the next.
constexpr qint64 kSameClickMs = 200;

QRegion roundedRegion(const QRect &rectangle, int radius)
{
    QPainterPath path;
    path.addRoundedRect(rectangle, radius, radius);
    return QRegion(path.toFillPolygon().toPolygon());
}

} // namespace

PopoverWindow::PopoverWindow()
    : m_shadow(new CardShadow(kCornerRadius, contentItem()))
{
    QSurfaceFormat withAlpha = format();
    withAlpha.setAlphaBufferSize(8);
    setFormat(withAlpha);
    setColor(Qt::transparent);
    // A popup would get no keys from several window managers, and a plain window would be in the task list.
    setFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    const QSize size = kCardSize.grownBy({ kMargin, kMargin, kMargin, kMargin });
    setMinimumSize(size);
    setMaximumSize(size);
    resize(size);
    m_shadow->setSize(size);
    connect(this, &QWindow::visibleChanged, this, &PopoverWindow::follow);
    connect(this, &QWindow::activeChanged, this, [this] {
        if (!isActive()) {
            hideForOutsideClick();
        }
    });
}

PopoverWindow::~PopoverWindow()
{
    disconnect(this, nullptr, this, nullptr); // hiding at the end is nobody's business any more
}

void PopoverWindow::setContent(QQuickItem *item)
{
    item->setParentItem(contentItem());
    item->setPosition(kCard.topLeft());
    item->setSize(kCardSize);
    if (item->isFocusScope()) { // any other item would take the keyboard from the items in it
        item->setFocus(true);
    }
}

void PopoverWindow::showAt(std::optional<QPoint> anchor)
{
    place(anchor);
    if (!isVisible()) {
        dressForDisplay();
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
    const QPoint card = popoverPosition(anchor, onScreen->geometry(), onScreen->availableGeometry(), kCardSize);
    setPosition(card - kCard.topLeft());
}

void PopoverWindow::dressForDisplay()
{
    create();
    setUtilityState(*this);
    const bool blended = hasCompositor();
    m_shadow->setVisible(blended);
    setMask(blended ? QRegion() : roundedRegion(kCard, kCornerRadius));
    setVisibleArea(*this, kCard);
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
    return kCard.translated(position());
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
    if (kCard.contains(event->position().toPoint())) {
        QQuickWindow::mousePressEvent(event);
    } else {
        hideForOutsideClick();
    }
}

} // namespace mintaro
