#include "Views/Settings/AboutIcon.h"

#include <QPainter>
#include <QSvgRenderer>

namespace mintaro {

namespace {

constexpr int kShadowRadius = 4;
constexpr double kShadowOpacity = 0.33;

/// The shape alone, in black, its edges spread by smooth scaling there and back.
QImage shadowOf(const QImage &picture)
{
    QImage shape = picture;
    QPainter painter(&shape);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(shape.rect(), Qt::black);
    painter.end();
    return shape.scaled(shape.size() / (2 * kShadowRadius), Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .scaled(shape.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

} // namespace

AboutIcon::AboutIcon(QQuickItem *parent)
    : QQuickPaintedItem(parent)
{
}

void AboutIcon::paint(QPainter *painter)
{
    const QRectF frame = boundingRect();
    const double ratio = painter->device()->devicePixelRatioF();
    const QImage icon = image(qRound(frame.width() * ratio));
    painter->setOpacity(kShadowOpacity);
    painter->drawImage(frame, shadowOf(icon));
    painter->setOpacity(1);
    painter->drawImage(frame, icon);
}

QImage AboutIcon::image(int size)
{
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    QSvgRenderer(QStringLiteral(":/icons/dev.velmora.mintaro.svg")).render(&painter);
    return image;
}

} // namespace mintaro
