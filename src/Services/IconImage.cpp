#include "Services/IconImage.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>
#include <QtEndian>

#include <algorithm>
#include <optional>

namespace mintaro {

namespace {

constexpr int kMostPixels = 512; // on an edge
constexpr int kWantedPixels = 2 * kIconSize;
constexpr int kKeptPixels = 4 * kIconSize; // nobody sees more, and two hundred icons are kept

bool isBounded(const QSize &size)
{
    return !size.isEmpty() && std::max(size.width(), size.height()) <= kMostPixels;
}

QImage read(const QByteArray &data, const QByteArray &format, int index = 0)
{
    QBuffer buffer;
    buffer.setData(data);
    QImageReader reader(&buffer, format);
    if (index > 0 && !reader.jumpToImage(index))
        return {};
    return isBounded(reader.size()) ? reader.read() : QImage();
}

/// One picture of an ICO: either a PNG, whole, or what is left of a BMP without its file header.
struct IcoEntry
{
    int index;
    QSize size;
    QByteArray content;
    [[nodiscard]] bool isPng() const { return content.startsWith("\x89PNG"); }
};

quint32 number(const QByteArray &data, qsizetype offset)
{
    return qFromLittleEndian<quint32>(data.constData() + offset);
}

std::optional<IcoEntry> icoEntry(const QByteArray &ico, int index)
{
    constexpr qsizetype kHeader = 6;
    constexpr qsizetype kEntry = 16;
    constexpr qsizetype kShortest = 24; // up to the sizes
    const qsizetype start = kHeader + index * kEntry;
    if (ico.size() < start + kEntry)
        return std::nullopt;
    const qint64 offset = number(ico, start + 12);
    const qint64 length = std::min<qint64>(number(ico, start + 8), ico.size() - offset);
    if (length < kShortest)
        return std::nullopt;
    // Not copied: a folder may name the same megabyte thousands of times.
    IcoEntry entry { index, {}, QByteArray::fromRawData(ico.constData() + offset, length) };
    // The folder in front has too few bits for the sizes, and need not be right.
    if (entry.isPng())
        entry.size = { qFromBigEndian<qint32>(entry.content.constData() + 16),
            qFromBigEndian<qint32>(entry.content.constData() + 20) };
    else
        entry.size = { qFromLittleEndian<qint32>(entry.content.constData() + 4),
            qFromLittleEndian<qint32>(entry.content.constData() + 8) / 2 };
    return isBounded(entry.size) ? std::optional(std::move(entry)) : std::nullopt;
}

bool isBetter(const QSize &a, const QSize &b)
{
    const bool isEnough = a.width() >= kWantedPixels;
    return isEnough == (b.width() >= kWantedPixels) ? (isEnough ? a.width() < b.width() : a.width() > b.width())
                                                    : isEnough;
}

QImage readIco(const QByteArray &ico)
{
    const int count = qFromLittleEndian<quint16>(ico.constData() + 4);
    std::optional<IcoEntry> best;
    for (int index = 0; index < count; ++index) {
        const std::optional<IcoEntry> entry = icoEntry(ico, index);
        if (entry && (!best || isBetter(entry->size, best->size)))
            best = entry;
    }
    if (!best)
        return {};
    return best->isPng() ? read(best->content, "png") : read(ico, "ico", best->index);
}

QImage readPicture(const QByteArray &data)
{
    if (data.size() > 6 && data.startsWith(QByteArrayView("\0\0\1\0", 4)))
        return readIco(data);
    const std::pair<QByteArray, QByteArray> formats[]
        = { { "\x89PNG", "png" }, { "GIF8", "gif" }, { "\xFF\xD8\xFF", "jpeg" }, { "BM", "bmp" } };
    for (const auto &[mark, format] : formats) {
        if (data.startsWith(mark))
            return read(data, format);
    }
    return {};
}

} // namespace

QImage iconImage(const QByteArray &data)
{
    QImage picture = readPicture(data);
    if (picture.isNull())
        return {};
    if (std::max(picture.width(), picture.height()) > kKeptPixels)
        picture = picture.scaled(kKeptPixels, kKeptPixels, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    const int edge = std::max(picture.width(), picture.height());
    QImage square(edge, edge, QImage::Format_ARGB32_Premultiplied);
    square.fill(Qt::transparent);
    QPainter painter(&square);
    painter.drawImage((edge - picture.width()) / 2, (edge - picture.height()) / 2, picture);
    painter.end();
    square.setDevicePixelRatio(static_cast<double>(edge) / kIconSize);
    return square;
}

} // namespace mintaro
