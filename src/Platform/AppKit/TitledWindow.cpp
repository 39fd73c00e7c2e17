#include "Platform/AppKit/TitledWindow.h"

#include "Platform/AppKit/PointerScreen.h"

#include <QCloseEvent>
#include <QQuickItem>
#include <QScreen>

namespace mintaro {

TitledWindow::TitledWindow(const QSize &contentSize)
{
    setFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
    setMinimumSize(contentSize);
    setMaximumSize(contentSize);
    resize(contentSize);
}

void TitledWindow::setContent(QQuickItem *item)
{
    item->setParentItem(contentItem());
    item->setSize(size());
    if (item->isFocusScope()) {
        item->setFocus(true);
    }
}

void TitledWindow::present()
{
    if (!isVisible()) {
        QScreen *onScreen = screenWithPointer();
        setScreen(onScreen);
        QRect geometry(QPoint(), size());
        geometry.moveCenter(onScreen->availableGeometry().center());
        setPosition(geometry.topLeft());
    }
    // Also out of an icon.
    showNormal();
    raise();
    requestActivate();
}

void TitledWindow::closeEvent(QCloseEvent *event)
{
    QQuickWindow::closeEvent(event);
    Q_EMIT closed();
}

} // namespace mintaro
