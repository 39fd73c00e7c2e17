#include "Platform/AppKit/CardWindow.h"

#include "Platform/AppKit/X11Window.h"

#include <QPainterPath>
#include <QPolygon>
#include <QQuickItem>
#include <QRegion>
#include <QSurfaceFormat>

namespace mintaro {

namespace {

QRegion roundedRegion(const QRect &rectangle, int radius)
{
    QPainterPath path;
    path.addRoundedRect(rectangle, radius, radius);
    return QRegion(path.toFillPolygon().toPolygon());
}

} // namespace

CardWindow::CardWindow(const QSize &cardSize, Qt::WindowFlags flags)
    : m_card(QPoint(kShadowMargin, kShadowMargin), cardSize)
    , m_shadow(new CardShadow(kCornerRadius, contentItem()))
{
    QSurfaceFormat withAlpha = format();
    withAlpha.setAlphaBufferSize(8);
    setFormat(withAlpha);
    setColor(Qt::transparent);
    setFlags(flags | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    const QSize size = cardSize.grownBy({ kShadowMargin, kShadowMargin, kShadowMargin, kShadowMargin });
    setMinimumSize(size);
    setMaximumSize(size);
    resize(size);
    m_shadow->setSize(size);
}

void CardWindow::setContent(QQuickItem *item)
{
    item->setParentItem(contentItem());
    item->setPosition(m_card.topLeft());
    item->setSize(m_card.size());
    if (item->isFocusScope()) { // any other item would take the keyboard from the items in it
        item->setFocus(true);
    }
}

void CardWindow::setCardPosition(QPoint position)
{
    setPosition(position - m_card.topLeft());
}

void CardWindow::dressForDisplay()
{
    create();
    const bool blended = hasCompositor();
    m_shadow->setVisible(blended);
    setMask(blended ? QRegion() : roundedRegion(m_card, kCornerRadius));
    setVisibleArea(*this, m_card);
}

} // namespace mintaro
