#pragma once

#include <QImage>
#include <QQuickPaintedItem>
#include <QtQml/qqmlregistration.h>

#include <QCoroTask>

namespace mintaro {

/// Draws the icon of a web site once it is there, of the newest url only. The FaviconService is the engine's property
/// "faviconService"; without one there are no icons.
class FaviconPicture : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString url READ url WRITE setUrl NOTIFY urlChanged)
    Q_PROPERTY(bool hasIcon READ hasIcon NOTIFY hasIconChanged)

public:
    explicit FaviconPicture(QQuickItem *parent = nullptr);

    [[nodiscard]] const QString &url() const { return m_url; }
    void setUrl(const QString &url);
    [[nodiscard]] bool hasIcon() const { return !m_icon.isNull(); }

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void urlChanged();
    void hasIconChanged();

protected:
    void componentComplete() override;

private:
    QCoro::Task<> load();
    void setIcon(const QImage &icon);

    QString m_url;
    QImage m_icon;
};

} // namespace mintaro
