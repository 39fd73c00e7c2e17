#include "Platform/AppKit/SingleInstance.h"

#include "Platform/Foundation/Logger.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>

namespace mintaro {

namespace {

constexpr QLatin1String kName(kSubsystem);
constexpr QLatin1String kPath("/dev/velmora/mintaro");
constexpr QLatin1String kInterface("org.freedesktop.Application");
constexpr QLatin1String kToggle("toggle");
constexpr QLatin1String kSettings("settings");
/// The bus's answer to a call that is not to start anything.
constexpr QLatin1String kNoOwner("org.freedesktop.DBus.Error.NameHasNoOwner");

} // namespace

SingleInstance::SingleInstance(QDBusConnection bus, std::chrono::milliseconds patience)
    : m_bus(std::move(bus))
    , m_patience(patience)
{
}

SingleInstance::~SingleInstance()
{
    if (m_bus.isConnected()) {
        // Another one may start as soon as the name is free.
        m_bus.unregisterService(kName);
        m_bus.unregisterObject(kPath);
    }
}

SingleInstance::Start SingleInstance::start(Request request)
{
    if (!m_bus.isConnected()) {
        Logger(QStringLiteral("Instance"))
            .error(QStringLiteral("There is no session bus: a second start will not find this one"));
        return Start::First;
    }
    // Before the name, or a call could come to a path that is not there yet.
    m_bus.registerObject(kPath, this, QDBusConnection::ExportScriptableSlots);
    if (takeName()) {
        return Start::First;
    }
    if (ask(request, m_bus, m_patience) == Answer::Done) {
        return Start::Second;
    }
    // It may have been about to end.
    return takeName() ? Start::First : Start::Stuck;
}

bool SingleInstance::takeName()
{
    return m_bus.interface()->registerService(kName, QDBusConnectionInterface::DontQueueService)
        == QDBusConnectionInterface::ServiceRegistered;
}

SingleInstance::Answer SingleInstance::ask(
    Request request, const QDBusConnection &bus, std::chrono::milliseconds patience)
{
    const bool isAction = request != Request::Show;
    QDBusMessage call = QDBusMessage::createMethodCall(
        kName, kPath, kInterface, isAction ? QStringLiteral("ActivateAction") : QStringLiteral("Activate"));
    if (isAction) {
        call << QString(request == Request::Toggle ? kToggle : kSettings) << QVariantList();
    }
    call << QVariantMap();
    call.setAutoStartService(false);
    const QDBusMessage reply = bus.call(call, QDBus::Block, static_cast<int>(patience.count()));
    if (reply.type() == QDBusMessage::ReplyMessage) {
        return Answer::Done;
    }
    const bool isAbsent = reply.errorName() == kNoOwner || QDBusError(reply).type() == QDBusError::Disconnected;
    return isAbsent ? Answer::NotRunning : Answer::None;
}

void SingleInstance::Activate(const QVariantMap & /*platformData*/)
{
    QMetaObject::invokeMethod(this, &SingleInstance::showRequested, Qt::QueuedConnection);
}

void SingleInstance::Open(const QStringList & /*uris*/, const QVariantMap &platformData)
{
    Activate(platformData);
}

void SingleInstance::ActivateAction(
    const QString &action, const QVariantList & /*parameter*/, const QVariantMap & /*platformData*/)
{
    if (action == kToggle) {
        QMetaObject::invokeMethod(this, &SingleInstance::toggleRequested, Qt::QueuedConnection);
    } else if (action == kSettings) {
        QMetaObject::invokeMethod(this, &SingleInstance::settingsRequested, Qt::QueuedConnection);
    } else {
        sendErrorReply(QDBusError::InvalidArgs, QStringLiteral("There is no action \"%1\"").arg(action));
    }
}

} // namespace mintaro
