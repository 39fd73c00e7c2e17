#pragma once

#include <QDBusVariant>
#include <QList>
#include <QString>
#include <QVariantMap>

class QDBusArgument;

namespace mintaro {

/// (ia{sv}): one entry's properties.
struct DBusMenuProperties
{
    int id = 0;
    QVariantMap properties;
};

/// (ia{sv}av): an entry with the entries below it.
struct DBusMenuLayout
{
    int id = 0;
    QVariantMap properties;
    QList<DBusMenuLayout> children;
};

/// (isvu): something that happened to an entry.
struct DBusMenuEvent
{
    int id = 0;
    QString kind;
    QDBusVariant data;
    uint timestamp = 0;
};

QDBusArgument &operator<<(QDBusArgument &argument, const DBusMenuProperties &entry);
const QDBusArgument &operator>>(const QDBusArgument &argument, DBusMenuProperties &entry);
QDBusArgument &operator<<(QDBusArgument &argument, const DBusMenuLayout &layout);
const QDBusArgument &operator>>(const QDBusArgument &argument, DBusMenuLayout &layout);
QDBusArgument &operator<<(QDBusArgument &argument, const DBusMenuEvent &event);
const QDBusArgument &operator>>(const QDBusArgument &argument, DBusMenuEvent &event);

/// Makes the types known to QtDBus; further calls do nothing.
void registerDBusMenuTypes();

} // namespace mintaro
