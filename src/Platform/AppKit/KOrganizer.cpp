#include "Platform/AppKit/KOrganizer.h"

#include "Platform/Foundation/Logger.h"

#include <QCoroDBusPendingCall>
#include <QCoroTimer>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QTimer>

#include <chrono>

namespace mintaro {

using namespace std::chrono_literals;

namespace {

constexpr int kMostCalls = 40;
constexpr auto kBetweenCalls = 500ms;

/// Before it has its name, and before it has set up what stands behind it.
bool isStarting(const QDBusMessage &reply)
{
    const QDBusError::ErrorType error = QDBusError(reply).type();
    return error == QDBusError::ServiceUnknown || error == QDBusError::UnknownObject;
}

} // namespace

QCoro::Task<bool> callKOrganizer(QString method, QVariantList arguments)
{
    QDBusMessage call = QDBusMessage::createMethodCall(QStringLiteral("org.kde.korganizer"),
        QStringLiteral("/Calendar"), QStringLiteral("org.kde.Korganizer.Calendar"), method);
    call.setArguments(arguments);
    QDBusMessage reply;
    for (int i = 0; i < kMostCalls; ++i) {
        const QDBusPendingCall pending = QDBusConnection::sessionBus().asyncCall(call);
        reply = co_await pending;
        if (!isStarting(reply))
            break;
        QTimer pause;
        pause.start(kBetweenCalls);
        co_await pause;
    }
    if (reply.type() == QDBusMessage::ErrorMessage)
        Logger(QStringLiteral("Workspace")).error(QStringLiteral("KOrganizer: ") + reply.errorMessage());
    co_return reply.type() == QDBusMessage::ReplyMessage;
}

} // namespace mintaro
