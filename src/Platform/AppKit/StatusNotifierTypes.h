#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

class QDBusArgument;
class QImage;

namespace mintaro {

/// One size of an icon, (iiay): straight ARGB32 in network byte order.
struct StatusNotifierPixmap
{
    int width = 0;
    int height = 0;
    QByteArray pixels;

    [[nodiscard]] static StatusNotifierPixmap fromImage(const QImage &image);
    friend bool operator==(const StatusNotifierPixmap &, const StatusNotifierPixmap &) = default;
};

/// (sa(iiay)ss)
struct StatusNotifierToolTip
{
    QString iconName;
    QList<StatusNotifierPixmap> iconPixmap;
    QString title;
    QString text;

    friend bool operator==(const StatusNotifierToolTip &, const StatusNotifierToolTip &) = default;
};

QDBusArgument &operator<<(QDBusArgument &argument, const StatusNotifierPixmap &pixmap);
const QDBusArgument &operator>>(const QDBusArgument &argument, StatusNotifierPixmap &pixmap);
QDBusArgument &operator<<(QDBusArgument &argument, const StatusNotifierToolTip &toolTip);
const QDBusArgument &operator>>(const QDBusArgument &argument, StatusNotifierToolTip &toolTip);

/// Makes the types known to QtDBus; further calls do nothing.
void registerStatusNotifierTypes();

} // namespace mintaro
