#include "main/UpdateNotification.h"

#include <QCoreApplication>

namespace mintaro {

using namespace std::chrono_literals;

namespace {

constexpr QLatin1String kCategory("UPDATE_AVAILABLE");

} // namespace

UNNotificationCategory updateCategory()
{
    return { kCategory, { { kShowUpdateAction, qtTrId("updates.open") } } };
}

UNNotificationRequest updateNotification(
    const SUAppcastItem &item, const QString &ownVersion, const Environment &environment)
{
    const Date now = environment.now();
    UNNotificationContent content;
    content.title = qtTrId("updates.available.title %@").arg(item.displayVersionString);
    content.body = qtTrId("updates.available.body %@").arg(ownVersion);
    content.categoryIdentifier = kCategory;
    content.userInfo.insert(kUpdateURL, item.link.absoluteString());
    return { .identifier = QStringLiteral("update"),
        .content = content,
        .lateContent = content,
        .trigger = UNCalendarNotificationTrigger::atMinute(now + 1min, environment.calendar()),
        .occasion = { now, now + 24h } };
}

} // namespace mintaro
