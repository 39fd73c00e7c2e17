#pragma once

#include <QImage>
#include <QQuickItem>

namespace mintaro {

/// The soft shadow around a rounded card, as a nine-patch picture: no layer and no shader, so that every renderer shows
/// it. The card is this item less kMargin on each side.
class CardShadow : public QQuickItem
{
    Q_OBJECT

public:
    /// How far the shadow reaches, in logical pixels.
    static constexpr int kMargin = 24;

    CardShadow(double cornerRadius, QQuickItem *parent);

protected:
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *data) override;
    void itemChange(ItemChange change, const ItemChangeData &value) override;

private:
    [[nodiscard]] QImage picture(double devicePixelRatio) const;

    const double m_cornerRadius;
    bool m_pictureIsStale = true;
};

} // namespace mintaro
