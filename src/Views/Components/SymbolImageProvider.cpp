#include "Views/Components/SymbolImageProvider.h"

#include "Platform/Foundation/Logger.h"

#include <QHash>
#include <QPainter>
#include <QSvgRenderer>

namespace mintaro {

namespace {

/// From the names that the program uses to the files of the symbol set.
const QHash<QString, QString> &symbolFiles()
{
    static const QHash<QString, QString> files {
        { QStringLiteral("bubble.left.and.bubble.right.fill"), QStringLiteral("chat-dots-fill") },
        { QStringLiteral("calendar"), QStringLiteral("calendar3") },
        { QStringLiteral("calendar.badge.checkmark"), QStringLiteral("calendar2-check") },
        { QStringLiteral("calendar.badge.exclamationmark"), QStringLiteral("calendar3") },
        { QStringLiteral("checkmark"), QStringLiteral("check-lg") },
        { QStringLiteral("checkmark.circle"), QStringLiteral("check-circle") },
        { QStringLiteral("checkmark.circle.fill"), QStringLiteral("check-circle-fill") },
        { QStringLiteral("chevron.down"), QStringLiteral("chevron-down") },
        { QStringLiteral("chevron.left"), QStringLiteral("chevron-left") },
        { QStringLiteral("chevron.right"), QStringLiteral("chevron-right") },
        { QStringLiteral("chevron.up.chevron.down"), QStringLiteral("chevron-expand") },
        { QStringLiteral("circle"), QStringLiteral("circle") },
        { QStringLiteral("doc.on.doc"), QStringLiteral("files") },
        { QStringLiteral("gear"), QStringLiteral("gear") },
        { QStringLiteral("globe"), QStringLiteral("globe") },
        { QStringLiteral("headphones.circle.fill"), QStringLiteral("headphones") },
        { QStringLiteral("info.circle"), QStringLiteral("info-circle") },
        { QStringLiteral("keyboard"), QStringLiteral("keyboard") },
        { QStringLiteral("link"), QStringLiteral("link-45deg") },
        { QStringLiteral("list.bullet"), QStringLiteral("list-ul") },
        { QStringLiteral("lock.shield"), QStringLiteral("shield-lock") },
        { QStringLiteral("magnifyingglass"), QStringLiteral("search") },
        { QStringLiteral("mappin"), QStringLiteral("geo-alt") },
        { QStringLiteral("minus"), QStringLiteral("dash-lg") },
        { QStringLiteral("minus.circle"), QStringLiteral("dash-circle") },
        { QStringLiteral("paintbrush"), QStringLiteral("brush") },
        { QStringLiteral("pencil"), QStringLiteral("pencil") },
        { QStringLiteral("person.3.fill"), QStringLiteral("people-fill") },
        { QStringLiteral("phone.fill"), QStringLiteral("telephone-fill") },
        { QStringLiteral("play.rectangle.fill"), QStringLiteral("play-btn-fill") },
        { QStringLiteral("plus"), QStringLiteral("plus-lg") },
        { QStringLiteral("power"), QStringLiteral("power") },
        { QStringLiteral("trash"), QStringLiteral("trash") },
        { QStringLiteral("video.fill"), QStringLiteral("camera-video-fill") },
        { QStringLiteral("xmark"), QStringLiteral("x-lg") },
        { QStringLiteral("xmark.circle.fill"), QStringLiteral("x-circle-fill") },
    };
    return files;
}

void tint(QImage &image, const QColor &color)
{
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), color);
}

/// A filled disc out of which the symbol is cut, for names that end in ".circle.fill" and have no file of their own.
QImage cutOutOfDisc(QSvgRenderer &symbol, int size)
{
    QImage disc(size, size, QImage::Format_ARGB32_Premultiplied);
    disc.fill(Qt::transparent);
    QPainter painter(&disc);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    painter.drawEllipse(disc.rect());
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    const double inset = size * 0.22;
    symbol.render(&painter, QRectF(disc.rect()).adjusted(inset, inset, -inset, -inset));
    return disc;
}

/// The symbol with a smaller one in its lower right corner, and a gap around that.
void addBadge(QPainter &painter, QSvgRenderer &badge, int size)
{
    const QRectF corner(size * 0.5, size * 0.5, size * 0.5, size * 0.5);
    const double gap = size * 0.06;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    painter.drawEllipse(corner.adjusted(-gap, -gap, gap, gap));
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    badge.render(&painter, corner);
}

} // namespace

SymbolImageProvider::SymbolImageProvider()
    : QQuickImageProvider(QQuickImageProvider::Pixmap)
{
}

QImage SymbolImageProvider::image(const QString &name, const QColor &color, int size)
{
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QSvgRenderer symbol(QStringLiteral(":/symbols/%1.svg").arg(symbolFiles().value(name)));
    if (!symbol.isValid()) {
        Logger(QStringLiteral("Views")).error(QStringLiteral("There is no symbol \"%1\"").arg(name));
        return image;
    }
    if (name == QLatin1String("headphones.circle.fill")) {
        image = cutOutOfDisc(symbol, size);
    } else {
        QPainter painter(&image);
        symbol.render(&painter, image.rect());
        if (name == QLatin1String("calendar.badge.exclamationmark")) {
            QSvgRenderer badge(QStringLiteral(":/symbols/exclamation-circle-fill.svg"));
            addBadge(painter, badge, size);
        }
    }
    tint(image, color);
    return image;
}

QPixmap SymbolImageProvider::requestPixmap(const QString &id, QSize *size, const QSize &requestedSize)
{
    const qsizetype mark = id.lastIndexOf(u'?');
    const int pixels = std::max(1, requestedSize.width());
    if (size)
        *size = QSize(pixels, pixels);
    return QPixmap::fromImage(image(id.left(mark), QColor(u'#' + id.mid(mark + 1)), pixels));
}

} // namespace mintaro
