#pragma once

#include "Platform/AppKit/SoundPlayer.h"
#include "Platform/Foundation/Logger.h"
#include "Platform/UserNotifications/NotificationPresenter.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QHash>
#include <QPointer>
#include <QStringList>

#include <chrono>
#include <functional>
#include <optional>

class QDBusPendingCallWatcher;

namespace mintaro {

/// Shows notifications by the desktop's daemon (Desktop Notifications Specification). Where there is none, where it
/// fails or cannot offer what a notification's user may choose, another presenter shows it instead. Lives on the main
/// thread.
class DesktopNotifications : public NotificationPresenter
{
    Q_OBJECT

public:
    static constexpr std::chrono::seconds kPatience { 10 };

    /// `sounds` must outlive the object. `patience`: for each answer of the daemon, which may have to be started first.
    DesktopNotifications(QDBusConnection bus, SoundPlayer &sounds, std::chrono::milliseconds patience = kPatience);

    /// Who shows what the daemon does not; without one it is lost.
    void setFallback(NotificationPresenter *fallback);

    void requestAuthorization() override;
    void present(const PresentedNotification &notification) override;
    void withdraw(const QString &identifier) override;

private Q_SLOTS:
    void actionInvoked(const QDBusMessage &signal);
    void activationToken(const QDBusMessage &signal);
    void notificationClosed(const QDBusMessage &signal);

private:
    /// A process that owns the daemon's name, and what it can do.
    struct Daemon
    {
        QString owner;
        QStringList capabilities;
    };
    /// One call of present().
    struct Presentation
    {
        PresentedNotification notification;
        quint64 serial;
    };
    struct Shown
    {
        QString identifier;
        QString activationToken;
    };

    void askForCapabilities();
    void onCapabilities(const QDBusMessage &reply);
    void onOwnerChanged(const QString &owner);
    void show(const Presentation &presentation);
    void giveUp(const Presentation &presentation);
    void onNotified(const Presentation &presentation, const QDBusMessage &reply);
    void fallBack(const PresentedNotification &notification);
    [[nodiscard]] bool isWanted(const Presentation &presentation) const;
    [[nodiscard]] bool can(const char *capability) const;
    /// Of the daemon; 0 where it does not show that.
    [[nodiscard]] quint32 numberOf(const QString &identifier) const;
    [[nodiscard]] QVariantList notifyArguments(const PresentedNotification &notification) const;
    void playSound(const PresentedNotification &notification);
    void close(quint32 number);
    void closeOnDaemon(const QString &identifier);
    /// The answer comes within the patience, in milliseconds, or is an error.
    QDBusPendingCallWatcher *call(const char *method, const QVariantList &arguments,
        std::function<void(const QDBusMessage &)> answer, int patience);

    QDBusConnection m_bus;
    SoundPlayer &m_sounds;
    const int m_patience; ///< in milliseconds
    const Logger m_logger;
    QPointer<NotificationPresenter> m_fallback;
    QDBusServiceWatcher m_daemonName;
    /// The last one that was told of; empty at first, and while there is none.
    QString m_owner;
    std::optional<Daemon> m_daemon;
    bool m_isAsking = false;
    /// What waits for the daemon's capabilities.
    std::vector<Presentation> m_waiting;
    quint64 m_lastSerial = 0;
    /// The last presentation of each identifier, until it is withdrawn or gone.
    QHash<QString, quint64> m_wanted;
    /// By the daemon's number.
    QHash<quint32, Shown> m_shown;
};

} // namespace mintaro
