#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>

/// Draws an SVG as a square PNG. Run when the package is built, once for each size of the icon themes.
int main(int argc, char **argv)
{
    if (argc != 4) {
        std::fputs("Usage: render-icon SVG SIZE PNG\n", stderr);
        return 2;
    }
    QSvgRenderer renderer(QFile::decodeName(argv[1]));
    const int size = QByteArray(argv[2]).toInt();
    if (!renderer.isValid() || size < 1) {
        std::fprintf(stderr, "render-icon: cannot draw %s in the size %s\n", argv[1], argv[2]);
        return 1;
    }
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter);
    painter.end();
    if (!image.save(QFile::decodeName(argv[3]), "PNG")) {
        std::fprintf(stderr, "render-icon: cannot write %s\n", argv[3]);
        return 1;
    }
    return 0;
}
