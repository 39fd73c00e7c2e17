#pragma once

#include <QQuickImageProvider>

namespace mintaro {

/// Draws the symbols that views and labels name, tinted: image://symbol/NAME?COLOR, where COLOR is rrggbb or aarrggbb.
/// An unknown name gives an empty picture and a log line. Works with every scene graph backend.
class SymbolImageProvider : public QQuickImageProvider
{
public:
    SymbolImageProvider();
    [[nodiscard]] QPixmap requestPixmap(const QString &id, QSize *size, const QSize &requestedSize) override;

    /// The symbol in one colour on a transparent ground, `size` by `size` device pixels.
    [[nodiscard]] static QImage image(const QString &name, const QColor &color, int size);
};

} // namespace mintaro
