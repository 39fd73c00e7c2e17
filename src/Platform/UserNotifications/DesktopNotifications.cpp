#include "Platform/UserNotifications/DesktopNotifications.h"

#include <QCoreApplication>
#include <QDBusPendingCallWatcher>
#include <QTimer>

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace mintaro {

namespace {

constexpr QLatin1String kService("org.freedesktop.Notifications");
constexpr QLatin1String kPath("/org/freedesktop/Notifications");
constexpr QLatin1String kSound("message-new-instant");
constexpr uchar kNormalUrgency = 1;
constexpr int kDaemonsOwnTime = -1;
constexpr int kForEver = std::numeric_limits<int>::max();

} // namespace

DesktopNotifications::DesktopNotifications(QDBusConnection bus, SoundPlayer &sounds, std::chrono::milliseconds patience)
    : m_bus(std::move(bus))
    , m_sounds(sounds)
    , m_patience(static_cast<int>(patience.count()))
    , m_logger(QStringLiteral("Notifications"))
    , m_daemonName(kService, m_bus, QDBusServiceWatcher::WatchForOwnerChange)
{
    connect(&m_daemonName, &QDBusServiceWatcher::serviceOwnerChanged, this,
        [this](const QString &, const QString &, const QString &owner) { onOwnerChanged(owner); });
    const auto follow = [this](const char *signal, const char *slot) {
        m_bus.connect(kService, kPath, kService, QLatin1String(signal), this, slot);
    };
    follow("ActionInvoked", SLOT(actionInvoked(QDBusMessage)));
    follow("ActivationToken", SLOT(activationToken(QDBusMessage)));
    follow("NotificationClosed", SLOT(notificationClosed(QDBusMessage)));
}

void DesktopNotifications::setFallback(NotificationPresenter *fallback)
{
    m_fallback = fallback;
    connect(fallback, &NotificationPresenter::activated, this, &NotificationPresenter::activated);
    connect(fallback, &NotificationPresenter::closed, this, &NotificationPresenter::closed);
}

void DesktopNotifications::requestAuthorization()
{
    if (!m_bus.isConnected())
        throw std::runtime_error("there is no session bus");
}

void DesktopNotifications::present(const PresentedNotification &notification)
{
    const Presentation presentation { notification, ++m_lastSerial };
    m_wanted.insert(notification.identifier, presentation.serial);
    if (!m_bus.isConnected()) { // a call would never be answered
        fallBack(notification);
        return;
    }
    if (m_daemon) {
        show(presentation);
        return;
    }
    m_waiting.push_back(presentation);
    if (!std::exchange(m_isAsking, true))
        askForCapabilities();
}

void DesktopNotifications::withdraw(const QString &identifier)
{
    m_wanted.remove(identifier);
    closeOnDaemon(identifier);
    if (NotificationPresenter *const fallback = m_fallback)
        fallback->withdraw(identifier);
}

void DesktopNotifications::askForCapabilities()
{
    call(
        "GetCapabilities", {}, [this](const QDBusMessage &reply) { onCapabilities(reply); }, m_patience);
}

void DesktopNotifications::onCapabilities(const QDBusMessage &reply)
{
    const bool hasAnswered = reply.type() == QDBusMessage::ReplyMessage;
    if (hasAnswered && !m_owner.isEmpty() && m_owner != reply.service()) {
        askForCapabilities(); // another daemon has come meanwhile
        return;
    }
    m_isAsking = false;
    if (hasAnswered)
        m_daemon = { reply.service(), reply.arguments().value(0).toStringList() };
    else
        m_logger.info(QStringLiteral("No daemon shows notifications: %1").arg(reply.errorMessage()));
    for (const Presentation &presentation : std::exchange(m_waiting, {})) {
        if (m_daemon)
            show(presentation);
        else if (isWanted(presentation))
            fallBack(presentation.notification);
    }
}

void DesktopNotifications::onOwnerChanged(const QString &owner)
{
    m_owner = owner;
    if (!m_daemon || m_daemon->owner == owner)
        return;
    m_daemon.reset();
    // Its numbers went with it, and so did what it showed.
    const auto gone = std::exchange(m_shown, {});
    for (const Shown &shown : gone) {
        m_wanted.remove(shown.identifier);
        Q_EMIT closed(shown.identifier);
    }
}

void DesktopNotifications::show(const Presentation &presentation)
{
    if (!isWanted(presentation))
        return;
    if (!presentation.notification.actions.empty() && !can("actions")) {
        fallBack(presentation.notification);
        return;
    }
    // An answer that comes after the patience still tells the number, without which nobody could close it again.
    QDBusPendingCallWatcher *const pending = call(
        "Notify", notifyArguments(presentation.notification),
        [this, presentation](const QDBusMessage &reply) { onNotified(presentation, reply); }, kForEver);
    QTimer::singleShot(m_patience, pending, [this, presentation] { giveUp(presentation); });
}

void DesktopNotifications::giveUp(const Presentation &presentation)
{
    if (!isWanted(presentation))
        return;
    m_logger.error(QStringLiteral("The notification daemon does not answer"));
    m_wanted.insert(presentation.notification.identifier, ++m_lastSerial); // of the daemon it is wanted no more
    fallBack(presentation.notification);
}

void DesktopNotifications::onNotified(const Presentation &presentation, const QDBusMessage &reply)
{
    const PresentedNotification &notification = presentation.notification;
    const quint32 number = reply.arguments().value(0).toUInt();
    // Another daemon knows nothing of what the one before was told.
    const bool isShowing = reply.type() == QDBusMessage::ReplyMessage && m_daemon && m_daemon->owner == reply.service();
    if (!isShowing) {
        m_logger.error(QStringLiteral("The notification daemon failed: %1").arg(reply.errorMessage()));
        if (isWanted(presentation))
            fallBack(notification);
    } else if (!isWanted(presentation)) {
        if (!m_shown.contains(number))
            close(number);
    } else {
        m_shown.insert(number, { notification.identifier, {} });
        if (NotificationPresenter *const fallback = m_fallback)
            fallback->withdraw(notification.identifier);
        if (!can("sound"))
            playSound(notification);
    }
}

void DesktopNotifications::fallBack(const PresentedNotification &notification)
{
    closeOnDaemon(notification.identifier);
    NotificationPresenter *const fallback = m_fallback;
    if (!fallback)
        return;
    fallback->present(notification);
    playSound(notification);
}

bool DesktopNotifications::isWanted(const Presentation &presentation) const
{
    return m_wanted.value(presentation.notification.identifier) == presentation.serial;
}

bool DesktopNotifications::can(const char *capability) const
{
    return m_daemon && m_daemon->capabilities.contains(QLatin1String(capability));
}

quint32 DesktopNotifications::numberOf(const QString &identifier) const
{
    const auto found = std::find_if(
        m_shown.begin(), m_shown.end(), [&](const Shown &shown) { return shown.identifier == identifier; });
    return found == m_shown.end() ? 0 : found.key();
}

QVariantList DesktopNotifications::notifyArguments(const PresentedNotification &notification) const
{
    QStringList actions;
    if (!notification.actions.empty())
        actions << kUNNotificationDefaultActionIdentifier << qtTrId("notification.open");
    for (const UNNotificationAction &action : notification.actions)
        actions << action.identifier << action.title;
    QVariantMap hints {
        { QStringLiteral("urgency"), QVariant::fromValue(kNormalUrgency) },
        { QStringLiteral("desktop-entry"), QLatin1String(kSubsystem) },
        { QStringLiteral("category"), QStringLiteral("x-mintaro.meeting") },
    };
    if (notification.hasSound)
        hints.insert(QStringLiteral("sound-name"), kSound);
    const QString body = can("body-markup") ? notification.body.toHtmlEscaped() : notification.body;
    return { QStringLiteral("Mintaro"), numberOf(notification.identifier), QStringLiteral("x-office-calendar"),
        notification.title, body, actions, hints, kDaemonsOwnTime };
}

void DesktopNotifications::playSound(const PresentedNotification &notification)
{
    if (notification.hasSound)
        m_sounds.play(kSound);
}

void DesktopNotifications::closeOnDaemon(const QString &identifier)
{
    const quint32 number = numberOf(identifier);
    if (m_shown.remove(number))
        close(number);
}

void DesktopNotifications::close(quint32 number)
{
    call(
        "CloseNotification", { number }, [](const QDBusMessage &) {}, m_patience);
}

QDBusPendingCallWatcher *DesktopNotifications::call(
    const char *method, const QVariantList &arguments, std::function<void(const QDBusMessage &)> answer, int patience)
{
    QDBusMessage message = QDBusMessage::createMethodCall(kService, kPath, kService, QLatin1String(method));
    message.setArguments(arguments);
    auto *pending = new QDBusPendingCallWatcher(m_bus.asyncCall(message, patience), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this, [pending, answer = std::move(answer)] {
        pending->deleteLater();
        answer(pending->reply());
    });
    return pending;
}

void DesktopNotifications::actionInvoked(const QDBusMessage &signal)
{
    const quint32 number = signal.arguments().value(0).toUInt();
    if (const auto found = m_shown.constFind(number); found != m_shown.constEnd()) // others' come here too
        Q_EMIT activated(found->identifier, signal.arguments().value(1).toString(), found->activationToken);
}

void DesktopNotifications::activationToken(const QDBusMessage &signal)
{
    // Comes just before the action that it is for.
    const auto found = m_shown.find(signal.arguments().value(0).toUInt());
    if (found != m_shown.end())
        found->activationToken = signal.arguments().value(1).toString();
}

void DesktopNotifications::notificationClosed(const QDBusMessage &signal)
{
    const Shown gone = m_shown.take(signal.arguments().value(0).toUInt());
    if (gone.identifier.isEmpty())
        return;
    m_wanted.remove(gone.identifier);
    Q_EMIT closed(gone.identifier);
}

} // namespace mintaro
