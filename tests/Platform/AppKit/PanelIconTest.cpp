#include "Platform/AppKit/PanelIcon.h"

#include <gtest/gtest.h>

#include <QColor>
#include <QPainter>
#include <QSvgRenderer>

#include <set>

namespace mintaro {

namespace {

const QColor kColor = QColor(0x36, 0x36, 0x36); // the colour that the SVG has where nobody recolours it

QImage rendered(const QByteArray &svg, int size)
{
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QSvgRenderer renderer(svg);
    QPainter painter(&image);
    renderer.render(&painter);
    return image;
}

int largestDifference(const QImage &a, const QImage &b)
{
    int largest = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            largest = std::max(largest, std::abs(a.pixelColor(x, y).alpha() - b.pixelColor(x, y).alpha()));
        }
    }
    return largest;
}

TEST(PanelIcon, EveryDayHasItsOwnPictureAtEverySize)
{
    for (const int size : { 16, 22, 24, 32, 48 }) {
        std::set<QByteArray> pictures;
        for (int day = 1; day <= 31; ++day) {
            const QImage image = PanelIcon(QString::number(day), size).image(kColor);
            EXPECT_EQ(image.size(), QSize(size, size));
            pictures.insert(QByteArray(reinterpret_cast<const char *>(image.constBits()), image.sizeInBytes()));
        }
        EXPECT_EQ(pictures.size(), 31u) << size;
    }
}

TEST(PanelIcon, TheSvgIsTheSamePictureDrawnWithPathsOnly)
{
    for (const int size : { 16, 22 }) {
        const PanelIcon icon(QStringLiteral("29"), size);
        const QByteArray svg = icon.svg();
        EXPECT_FALSE(svg.contains("<text"));
        EXPECT_TRUE(svg.contains("class=\"ColorScheme-Text\""));
        EXPECT_LE(largestDifference(rendered(svg, size), icon.image(kColor)), 16) << size;
    }
}

TEST(PanelIcon, StrokesLieOnWholePixels)
{
    const QImage image = PanelIcon(QStringLiteral("11"), 16).image(kColor);
    for (int x = 0; x < 16; ++x) {
        const int alpha = image.pixelColor(x, 9).alpha(); // through the frame and both uprights
        EXPECT_TRUE(alpha == 0 || alpha == 255) << x;
    }
}

} // namespace

} // namespace mintaro
