#include "Views/Components/FaviconPicture.h"

#include "Services/FaviconService.h"

#include <QPainter>
#include <QPointer>
#include <QQmlEngine>
#include <QQuickWindow>

namespace mintaro {

FaviconPicture::FaviconPicture(QQuickItem *parent)
    : QQuickPaintedItem(parent)
{
}

void FaviconPicture::setUrl(const QString &url)
{
    if (std::exchange(m_url, url) == url)
        return;
    Q_EMIT urlChanged();
    setIcon({});
    if (isComponentComplete())
        load();
}

void FaviconPicture::componentComplete()
{
    QQuickPaintedItem::componentComplete();
    load();
}

QCoro::Task<> FaviconPicture::load()
{
    const QPointer<FaviconPicture> self(this);
    auto *const service = qmlEngine(this)->property("faviconService").value<FaviconService *>();
    const QString asked = m_url;
    const std::optional<URL> url = URL::fromString(asked);
    if (!service || !url)
        co_return;
    const QImage icon = co_await service->favicon(*url);
    if (self && m_url == asked)
        setIcon(icon);
}

void FaviconPicture::setIcon(const QImage &icon)
{
    const bool hadIcon = hasIcon();
    m_icon = icon;
    update();
    if (hadIcon != hasIcon())
        Q_EMIT hasIconChanged();
}

void FaviconPicture::paint(QPainter *painter)
{
    if (m_icon.isNull())
        return;
    // The painter's own scaling looks at four pixels at most, which is not enough to make an icon much smaller.
    const double ratio = window() ? window()->effectiveDevicePixelRatio() : 1;
    QImage scaled = m_icon.scaled((size() * ratio).toSize(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    scaled.setDevicePixelRatio(ratio);
    painter->drawImage(boundingRect(), scaled);
}

} // namespace mintaro
