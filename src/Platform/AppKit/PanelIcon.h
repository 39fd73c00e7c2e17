#pragma once

#include <QImage>
#include <QPainterPath>
#include <QString>

namespace mintaro {

/// The square icon of the panel: a calendar leaf with the day of the month, one area drawn on the pixel grid of its
/// size.
class PanelIcon
{
public:
    /// `day` has up to two digits; `size` is the edge in device pixels, from 16 on.
    PanelIcon(const QString &day, int size);

    [[nodiscard]] QImage image(const QColor &color) const;
    /// The same area as a symbolic icon that GTK and Plasma paint in their text colour: paths only, since text elements
    /// depend on the reader's fonts.
    [[nodiscard]] QByteArray svg() const;

private:
    int m_size;
    QPainterPath m_area;
};

} // namespace mintaro
