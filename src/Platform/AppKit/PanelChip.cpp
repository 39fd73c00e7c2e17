#include "Platform/AppKit/PanelChip.h"

#include "Platform/AppKit/X11Window.h"
#include "Platform/Foundation/Logger.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QQuickItem>
#include <QScreen>
#include <QSurfaceFormat>

#include <cmath>

namespace mintaro {

PanelChip::PanelChip()
{
    QSurfaceFormat withAlpha = format();
    withAlpha.setAlphaBufferSize(8);
    setFormat(withAlpha);
    setColor(Qt::transparent);
    setFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus);
    connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, &PanelChip::followScreen);
    followScreen();
}

void PanelChip::setContent(QQuickItem *item)
{
    m_content = item;
    item->setParentItem(contentItem());
    connect(item, &QQuickItem::implicitWidthChanged, this, &PanelChip::place);
    connect(item, &QQuickItem::implicitHeightChanged, this, &PanelChip::place);
    place();
}

void PanelChip::followScreen()
{
    if (QScreen *primary = QGuiApplication::primaryScreen()) {
        connect(primary, &QScreen::availableGeometryChanged, this, &PanelChip::place, Qt::UniqueConnection);
        place();
    }
}

void PanelChip::place()
{
    const QScreen *primary = QGuiApplication::primaryScreen();
    if (!m_content || !primary) {
        return;
    }
    const QSize size(static_cast<int>(std::ceil(m_content->implicitWidth())),
        static_cast<int>(std::ceil(m_content->implicitHeight())));
    m_content->setSize(size);
    const QRect available = primary->availableGeometry();
    const QPoint corner(available.right() + 1 - kGap - size.width(), available.top() + kGap);
    setGeometry(QRect(corner, size));
}

void PanelChip::showChip()
{
    if (!onX11()) {
        Logger(QStringLiteral("Panel"))
            .info(QStringLiteral("No panel shows the item, and here no window can stand in"));
        return;
    }
    create();
    setUtilityState(*this);
    show();
}

void PanelChip::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        Q_EMIT clicked(event->globalPosition().toPoint());
}

} // namespace mintaro
