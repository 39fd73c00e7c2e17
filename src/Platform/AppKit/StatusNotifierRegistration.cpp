#include "Platform/AppKit/StatusNotifierRegistration.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QFile>

#include <utility>

namespace mintaro {

namespace {

constexpr QLatin1String kWatcher("org.kde.StatusNotifierWatcher");
constexpr QLatin1String kWatcherPath("/StatusNotifierWatcher");
constexpr QLatin1String kBus("org.freedesktop.DBus");

QDBusMessage watcherCall(QLatin1String interface, QLatin1String method, const QVariantList &arguments)
{
    QDBusMessage call = QDBusMessage::createMethodCall(kWatcher, kWatcherPath, interface, method);
    call.setArguments(arguments);
    return call;
}

QDBusMessage busCall(QLatin1String method, const QString &name)
{
    QDBusMessage call = QDBusMessage::createMethodCall(kBus, QStringLiteral("/"), kBus, method);
    call.setArguments({ name });
    return call;
}

/// Calls without waiting; `answer` gets the reply unless `context` is gone by then.
template <typename Answer>
void ask(const QDBusConnection &bus, const QDBusMessage &call, QObject *context, Answer answer)
{
    auto *pending = new QDBusPendingCallWatcher(bus.asyncCall(call), context);
    QObject::connect(pending, &QDBusPendingCallWatcher::finished, context, [pending, answer] {
        pending->deleteLater();
        answer(pending->reply());
    });
}

QString processName(uint pid)
{
    QFile file(QStringLiteral("/proc/%1/comm").arg(pid));
    return file.open(QIODevice::ReadOnly) ? QString::fromLocal8Bit(file.readAll()).trimmed() : QString();
}

} // namespace

StatusNotifierRegistration::StatusNotifierRegistration(
    QDBusConnection bus, QString itemService, std::chrono::milliseconds patience)
    : m_bus(std::move(bus))
    , m_itemService(std::move(itemService))
    , m_logger(QStringLiteral("Panel"))
    , m_watcherName(kWatcher, m_bus, QDBusServiceWatcher::WatchForOwnerChange)
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(patience);
    connect(&m_patience, &QTimer::timeout, this, [this] { setHost(StatusHost::None); });
    connect(&m_watcherName, &QDBusServiceWatcher::serviceOwnerChanged, this,
        [this](const QString &, const QString &, const QString &owner) { setWatcher(owner); });
}

void StatusNotifierRegistration::start()
{
    m_bus.connect(
        kWatcher, kWatcherPath, kWatcher, QStringLiteral("StatusNotifierHostRegistered"), this, SLOT(hostRegistered()));
    m_patience.start();
    ask(m_bus, busCall(QLatin1String("GetNameOwner"), kWatcher), this, [this](const QDBusMessage &reply) {
        if (reply.type() == QDBusMessage::ReplyMessage && m_owner.isEmpty()) {
            setWatcher(reply.arguments().value(0).toString());
        }
    });
}

void StatusNotifierRegistration::setWatcher(const QString &owner)
{
    m_owner = owner;
    if (m_owner.isEmpty()) {
        m_patience.start();
    } else {
        registerItem();
    }
}

void StatusNotifierRegistration::registerItem()
{
    const auto call = watcherCall(kWatcher, QLatin1String("RegisterStatusNotifierItem"), { m_itemService });
    ask(m_bus, call, this, [this](const QDBusMessage &reply) {
        if (reply.type() == QDBusMessage::ErrorMessage) {
            m_logger.error(QLatin1String("The panel refused the item: %1").arg(reply.errorMessage()));
        } else {
            askForHost();
        }
    });
}

void StatusNotifierRegistration::askForHost()
{
    const auto call = watcherCall(QLatin1String("org.freedesktop.DBus.Properties"), QLatin1String("Get"),
        { QString(kWatcher), QStringLiteral("IsStatusNotifierHostRegistered") });
    ask(m_bus, call, this, [this](const QDBusMessage &reply) {
        // A watcher that lacks the property is a host itself.
        const bool answered = reply.type() == QDBusMessage::ReplyMessage;
        if (!answered || reply.arguments().value(0).value<QDBusVariant>().variant().toBool()) {
            identify();
        }
    });
}

void StatusNotifierRegistration::hostRegistered()
{
    if (!m_owner.isEmpty()) {
        identify();
    }
}

void StatusNotifierRegistration::identify()
{
    const QString owner = m_owner;
    ask(m_bus, busCall(QLatin1String("GetConnectionUnixProcessID"), owner), this,
        [this, owner](const QDBusMessage &reply) {
            if (owner == m_owner && !owner.isEmpty()) {
                setHost(statusHostOfProcess(processName(reply.arguments().value(0).toUInt())));
            }
        });
}

void StatusNotifierRegistration::setHost(StatusHost host)
{
    m_patience.stop();
    if (std::exchange(m_host, host) != host) {
        Q_EMIT hostChanged(host);
    }
}

} // namespace mintaro
