#pragma once

#include <QImage>
#include <QQuickPaintedItem>

namespace mintaro {

/// The program's icon, with a soft shadow of its own shape.
class AboutIcon : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT

public:
    explicit AboutIcon(QQuickItem *parent = nullptr);

    void paint(QPainter *painter) override;

    /// The icon alone, `size` by `size` device pixels.
    [[nodiscard]] static QImage image(int size);
};

} // namespace mintaro
