#include "Platform/AppKit/DigitStrokes.h"

#include <QLineF>
#include <QList>
#include <QPainterPathStroker>
#include <QPolygonF>

#include <algorithm>
#include <array>
#include <cmath>

namespace mintaro {

namespace {

/// A line in a box of 2 by 2 units whose middle bar lies at 1.
using Line = QList<QPointF>;
using Glyph = QList<Line>;

const std::array<Glyph, 10> &glyphs()
{
    static const std::array<Glyph, 10> all {
        Glyph { { { 1, 0 }, { 0, 0 }, { 0, 2 }, { 2, 2 }, { 2, 0 }, { 1, 0 } } },
        Glyph { { { 0, 0 }, { 1, 0 }, { 1, 2 } } },
        Glyph { { { 0, 0 }, { 2, 0 }, { 2, 1 }, { 0, 1 }, { 0, 2 }, { 2, 2 } } },
        Glyph { { { 0, 0 }, { 2, 0 }, { 2, 2 }, { 0, 2 } }, { { 0.5, 1 }, { 2, 1 } } },
        Glyph { { { 0, 0 }, { 0, 1 }, { 2, 1 } }, { { 2, 0 }, { 2, 2 } } },
        Glyph { { { 2, 0 }, { 0, 0 }, { 0, 1 }, { 2, 1 }, { 2, 2 }, { 0, 2 } } },
        Glyph { { { 2, 0 }, { 0, 0 }, { 0, 2 }, { 2, 2 }, { 2, 1 }, { 0, 1 } } },
        Glyph { { { 0, 0 }, { 2, 0 }, { 2, 2 } } },
        Glyph { { { 1, 0 }, { 0, 0 }, { 0, 2 }, { 2, 2 }, { 2, 0 }, { 1, 0 } }, { { 0, 1 }, { 2, 1 } } },
        Glyph { { { 0, 2 }, { 2, 2 }, { 2, 0 }, { 0, 0 }, { 0, 1 }, { 2, 1 } } },
    };
    return all;
}

QPointF towards(const QPointF &from, const QPointF &to, qreal distance)
{
    const QLineF line(from, to);
    return line.pointAt(std::min(distance / line.length(), 0.5));
}

/// The line with its bends rounded.
QPainterPath rounded(const QPolygonF &line, qreal radius)
{
    QPainterPath path(line.first());
    for (qsizetype i = 1; i + 1 < line.size(); ++i) {
        path.lineTo(towards(line[i], line[i - 1], radius));
        path.quadTo(line[i], towards(line[i], line[i + 1], radius));
    }
    path.lineTo(line.last());
    return path;
}

} // namespace

QPainterPath digitStrokes(QChar digit, const QRect &box, int thickness)
{
    const int value = digit.digitValue();
    if (value < 0) {
        return {};
    }
    QPainterPathStroker stroker;
    stroker.setWidth(thickness);
    stroker.setCapStyle(Qt::SquareCap);
    stroker.setJoinStyle(Qt::MiterJoin);
    const auto place = [&](const QPointF &unit) {
        const double x = std::floor(unit.x() / 2 * (box.width() - thickness));
        const double y = std::floor(unit.y() / 2 * (box.height() - thickness));
        return QPointF(box.x() + x + thickness / 2.0, box.y() + y + thickness / 2.0);
    };
    QPainterPath area;
    for (const Line &line : glyphs().at(static_cast<std::size_t>(value))) {
        QPolygonF points;
        std::transform(line.begin(), line.end(), std::back_inserter(points), place);
        area = area.united(stroker.createStroke(rounded(points, thickness)).simplified());
    }
    return area;
}

} // namespace mintaro
