#include "Platform/AppKit/PanelIcon.h"

#include "Platform/AppKit/DigitStrokes.h"

#include <QColor>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace mintaro {

namespace {

int part(int size, double divisor)
{
    return std::max(1, static_cast<int>(std::lround(size / divisor)));
}

/// The measures of a size, all whole pixels.
struct Grid
{
    int line;
    int header;
    int padding;
    int thickness;
    QRect leaf;
    QRect room; ///< Where the digits stand.

    explicit Grid(int size)
        : line(std::max(1, size / 16))
        , header(part(size, 5.3))
        , padding(part(size, 14))
        , thickness(part(size, 13))
        , leaf(line, line, size - 2 * line, size - 2 * line)
        , room(leaf.adjusted(line + padding, header + padding, -line - padding, -line - padding))
    {
    }
};

QPainterPath leafArea(const Grid &grid)
{
    const double radius = 2.0 * grid.line;
    QPainterPath outer;
    outer.addRoundedRect(grid.leaf, radius, radius);
    QPainterPath inner;
    const QRect hole = grid.leaf.adjusted(grid.line, grid.header, -grid.line, -grid.line);
    inner.addRoundedRect(hole, radius / 2, radius / 2);
    QPainterPath rings;
    const int inset = grid.leaf.width() / 4;
    const QSize ring(grid.thickness, grid.line + 1);
    rings.addRect(QRect(QPoint(grid.leaf.left() + inset, 0), ring));
    rings.addRect(QRect(QPoint(grid.leaf.right() + 1 - inset - ring.width(), 0), ring));
    return outer.subtracted(inner).united(rings);
}

QPainterPath dayArea(const QString &day, const Grid &grid)
{
    const int gap = std::max(grid.room.width() / 5, 1);
    int width = (grid.room.width() - gap) / 2;
    if (day.size() == 1) {
        width += (grid.room.width() - width) % 2; // so that it stands in the middle
    }
    QRect box(grid.room.topLeft(), QSize(width, grid.room.height()));
    if (day.size() == 1) {
        box.moveLeft(grid.room.left() + (grid.room.width() - width) / 2);
    }
    QPainterPath area;
    for (const QChar digit : day.left(2)) {
        area.addPath(digitStrokes(digit, box, grid.thickness));
        box.moveRight(grid.room.right());
    }
    return area;
}

QString number(double value)
{
    return QString::number(value, 'g', 5);
}

/// The area as the data of an SVG path element.
QString pathData(const QPainterPath &area)
{
    QString data;
    for (int i = 0; i < area.elementCount(); ++i) {
        const QPainterPath::Element element = area.elementAt(i);
        switch (element.type) {
        case QPainterPath::MoveToElement:
            data += QLatin1Char('M');
            break;
        case QPainterPath::LineToElement:
            data += QLatin1Char('L');
            break;
        case QPainterPath::CurveToElement:
            data += QLatin1Char('C');
            break;
        case QPainterPath::CurveToDataElement:
            data += QLatin1Char(' ');
            break;
        }
        data += number(element.x) + QLatin1Char(' ') + number(element.y);
    }
    return data;
}

} // namespace

PanelIcon::PanelIcon(const QString &day, int size)
    : m_size(size)
{
    const Grid grid(size);
    m_area = leafArea(grid);
    m_area.addPath(dayArea(day, grid));
}

QImage PanelIcon::image(const QColor &color) const
{
    QImage image(m_size, m_size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(m_area, color);
    return image;
}

QByteArray PanelIcon::svg() const
{
    static const QString kDocument
        = QStringLiteral("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"%1\" height=\"%1\" viewBox=\"0 0 %1 %1\">"
                         "<style id=\"current-color-scheme\" type=\"text/css\">.ColorScheme-Text{color:#363636}</style>"
                         "<path class=\"ColorScheme-Text\" style=\"fill:currentColor\" fill-rule=\"evenodd\" d=\"%2\"/>"
                         "</svg>\n");
    return kDocument.arg(QString::number(m_size), pathData(m_area)).toUtf8();
}

} // namespace mintaro
