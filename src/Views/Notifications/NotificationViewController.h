#pragma once

#include "Platform/UserNotifications/NotificationPresenter.h"

#include <QStringList>
#include <QtQml/qqmlregistration.h>

namespace mintaro {

/// What a notification in a window of ours says and offers.
class NotificationViewController : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The panel has one for each notification")
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(QString body READ body CONSTANT)
    Q_PROPERTY(QStringList actionTitles READ actionTitles CONSTANT)

public:
    explicit NotificationViewController(PresentedNotification notification);

    [[nodiscard]] const QString &identifier() const { return m_notification.identifier; }
    [[nodiscard]] const QString &title() const { return m_notification.title; }
    [[nodiscard]] const QString &body() const { return m_notification.body; }
    [[nodiscard]] QStringList actionTitles() const;

    /// `index`: into actionTitles.
    Q_INVOKABLE void choose(int index);
    Q_INVOKABLE void dismiss();

Q_SIGNALS:
    void chosen(const QString &actionIdentifier);
    void dismissed();

private:
    const PresentedNotification m_notification;
};

} // namespace mintaro
