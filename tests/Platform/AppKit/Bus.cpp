#include "Platform/AppKit/Bus.h"

#include <QDBusPendingCallWatcher>
#include <QEventLoop>

namespace mintaro::test {

Bus::Bus(const QString &program)
    : m_connection(QDBusConnection::connectToBus(QDBusConnection::SessionBus, program))
{
}

Bus::~Bus()
{
    QDBusConnection::disconnectFromBus(m_connection.name());
}

QDBusMessage Bus::call(const QString &service, const QString &path, const QString &interface, const QString &method,
    const QVariantList &arguments)
{
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, method);
    message.setArguments(arguments);
    const QDBusPendingCallWatcher pending(m_connection.asyncCall(message));
    QEventLoop loop;
    QObject::connect(&pending, &QDBusPendingCallWatcher::finished, &loop, &QEventLoop::quit);
    loop.exec();
    return pending.reply();
}

} // namespace mintaro::test
