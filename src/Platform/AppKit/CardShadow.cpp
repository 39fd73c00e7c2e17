#include "Platform/AppKit/CardShadow.h"

#include <QQuickWindow>
#include <QSGNinePatchNode>
#include <QSGTexture>

#include <algorithm>
#include <cmath>
#include <utility>

namespace mintaro {

namespace {

/// The darkest, directly under the card's edge.
constexpr double kOpacity = 0.30;
/// The light falls from above.
constexpr double kDrop = 4;

/// How far a point lies outside a square with rounded corners that is centred on the origin; negative inside.
double distanceToSquare(double x, double y, double half, double radius)
{
    const double dx = std::abs(x) - (half - radius);
    const double dy = std::abs(y) - (half - radius);
    return std::hypot(std::max(dx, 0.0), std::max(dy, 0.0)) + std::min(std::max(dx, dy), 0.0) - radius;
}

/// 1 within, 0 at the margin, bending softly.
double fade(double distance)
{
    const double part = std::clamp(1 - (distance + kDrop) / CardShadow::kMargin, 0.0, 1.0);
    return part * part * part;
}

} // namespace

CardShadow::CardShadow(double cornerRadius, QQuickItem *parent)
    : QQuickItem(parent)
    , m_cornerRadius(cornerRadius)
{
    setFlag(ItemHasContents);
}

QImage CardShadow::picture(double devicePixelRatio) const
{
    const double half = m_cornerRadius + kDrop + 1; // the smallest square that has all four corners
    const double edge = 2 * (half + kMargin);
    const int pixels = static_cast<int>(std::ceil(edge * devicePixelRatio));
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    for (int row = 0; row < pixels; ++row) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(row));
        for (int column = 0; column < pixels; ++column) {
            const double x = (column + 0.5) / devicePixelRatio - edge / 2;
            const double y = (row + 0.5) / devicePixelRatio - edge / 2 - kDrop;
            const double opacity = kOpacity * fade(distanceToSquare(x, y, half, m_cornerRadius));
            line[column] = qRgba(0, 0, 0, static_cast<int>(std::lround(255 * opacity)));
        }
    }
    return image;
}

QSGNode *CardShadow::updatePaintNode(QSGNode *node, UpdatePaintNodeData *)
{
    auto *patch = static_cast<QSGNinePatchNode *>(node);
    if (!patch) {
        patch = window()->createNinePatchNode();
        m_pictureIsStale = true;
    }
    if (std::exchange(m_pictureIsStale, false)) {
        const double ratio = window()->effectiveDevicePixelRatio();
        const double corner = m_cornerRadius + kDrop + kMargin;
        patch->setTexture(window()->createTextureFromImage(picture(ratio)));
        patch->setDevicePixelRatio(ratio);
        patch->setPadding(corner, corner, corner, corner);
    }
    patch->setBounds(boundingRect());
    patch->update();
    return patch;
}

void CardShadow::itemChange(ItemChange change, const ItemChangeData &value)
{
    if (change == ItemDevicePixelRatioHasChanged) {
        m_pictureIsStale = true;
        update();
    }
    QQuickItem::itemChange(change, value);
}

} // namespace mintaro
