#pragma once

#include "Platform/Foundation/Environment.h"
#include "Platform/Foundation/Logger.h"
#include "Platform/Foundation/WallClockTimer.h"
#include "Platform/UserNotifications/NotificationPresenter.h"
#include "Platform/UserNotifications/UNUserNotificationCenterDelegate.h"

#include <map>

namespace mintaro {

/// Shows notifications when their time has come. Requests are kept as long as the object and no longer. One whose
/// minute passed in sleep is shown at wake if what it announces is not over. None is shown twice for the same minute,
/// also where the clock is set back. For the main thread.
class UNUserNotificationCenter : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive the object.
    UNUserNotificationCenter(
        Environment &environment, NotificationPresenter &presenter, LogSink log = writeToSystemLog);

    /// Null for none; else it must outlive the object. Without one all is presented, and no response is followed.
    void setDelegate(UNUserNotificationCenterDelegate *delegate) { m_delegate = delegate; }
    [[nodiscard]] const std::vector<UNNotificationCategory> &notificationCategories() const { return m_categories; }
    /// In place of those before.
    void setNotificationCategories(std::vector<UNNotificationCategory> categories);
    /// Whether the user lets the program notify: the desktops ask nobody. Throws std::runtime_error where there is no
    /// way to tell the desktop; notifications are then shown by the program itself.
    [[nodiscard]] QCoro::Task<bool> requestAuthorization();

    /// In place of a pending one with the same identifier. One whose minute has begun is never shown. Throws
    /// std::invalid_argument where the trigger is no minute of the calendar.
    void add(const UNNotificationRequest &request);
    /// In ascending order of their identifiers. Those whose time has come are shown first.
    [[nodiscard]] std::vector<UNNotificationRequest> pendingNotificationRequests();
    void removePendingNotificationRequests(const QStringList &identifiers);
    /// What is on the screen, as far as the desktop tells.
    [[nodiscard]] std::vector<UNNotificationRequest> deliveredNotifications() const;
    /// Takes them from the screen.
    void removeDeliveredNotifications(const QStringList &identifiers);

Q_SIGNALS:
    /// A request is no longer pending, because its time had come.
    void delivered();

private:
    struct Scheduled
    {
        UNNotificationRequest request;
        Date moment;
    };

    void advance();
    void deliver(const Scheduled &scheduled);
    void present(const Scheduled &scheduled, UNNotificationPresentationOptions options);
    void withdrawExpired();
    void waitForNext();
    void onActivated(const QString &identifier, const QString &actionIdentifier, const QString &activationToken);

    const Environment &m_environment;
    NotificationPresenter &m_presenter;
    Logger m_logger;
    UNUserNotificationCenterDelegate *m_delegate = nullptr;
    std::vector<UNNotificationCategory> m_categories;
    WallClockTimer m_timer;
    std::map<QString, Scheduled> m_pending;
    std::map<QString, UNNotificationRequest> m_onScreen;
    /// What was shown for which moment, and until when that is remembered.
    std::map<std::pair<QString, Date>, Date> m_delivered;
};

} // namespace mintaro
