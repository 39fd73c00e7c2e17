#pragma once

#include "Platform/AppKit/StatusHost.h"
#include "Platform/Foundation/Logger.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QTimer>

#include <chrono>

namespace mintaro {

/// Tells the watcher of status items (org.kde.StatusNotifierWatcher) about an item, again whenever another program
/// becomes the watcher, and finds out which host that is.
class StatusNotifierRegistration : public QObject
{
    Q_OBJECT

public:
    /// `itemService` is the bus name that owns /StatusNotifierItem; `patience` how long a panel that starts late, or
    /// starts again, is waited for.
    StatusNotifierRegistration(QDBusConnection bus, QString itemService, std::chrono::milliseconds patience);

    /// Returns at once; the answer comes as a signal.
    void start();

Q_SIGNALS:
    /// Never Unknown; None when the patience has run out.
    void hostChanged(mintaro::StatusHost host);

private Q_SLOTS:
    void hostRegistered();

private:
    void setWatcher(const QString &owner);
    void registerItem();
    void askForHost();
    void identify();
    void setHost(StatusHost host);

    QDBusConnection m_bus;
    const QString m_itemService;
    const Logger m_logger;
    QDBusServiceWatcher m_watcherName;
    QTimer m_patience;
    QString m_owner; ///< The watcher's unique bus name; empty while there is none.
    StatusHost m_host = StatusHost::Unknown;
};

} // namespace mintaro
