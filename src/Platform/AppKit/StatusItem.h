#pragma once

#include "Platform/AppKit/MenuItem.h"
#include "Platform/AppKit/StatusHost.h"
#include "Platform/AppKit/StatusItemContent.h"

#include <QColor>
#include <QObject>
#include <QPoint>

#include <memory>
#include <optional>
#include <vector>

namespace mintaro {

class DBusMenu;
class StatusNotifierItem;
class StatusNotifierRegistration;

/// The program's item in the desktop's panel, whoever shows it. Lives on the main thread. Everything may be set before
/// start() and at any time after; what is equal to before causes no traffic.
class StatusItem : public QObject
{
    Q_OBJECT

public:
    explicit StatusItem(QObject *parent = nullptr);
    ~StatusItem() override;

    /// Offers the item on the session bus. Without a session bus there is no host, and a log line.
    void start();

    void setContent(const StatusItemContent &content);
    /// The icon's colour on hosts that do not paint it in their own.
    void setIconColor(const QColor &color);
    void setMenu(std::vector<MenuItem> items);

Q_SIGNALS:
    /// The item was clicked: at this point of the screen, where the host tells a trustworthy one.
    void activated(std::optional<QPoint> where);
    /// Never Unknown; the first time up to five seconds after start().
    void hostChanged(mintaro::StatusHost host);
    /// The item's menu came up and went, where the host tells.
    void menuTrackingBegan();
    void menuTrackingEnded();

private:
    void setHost(StatusHost host);
    void click(QPoint where);

    std::unique_ptr<DBusMenu> m_menu;
    std::unique_ptr<StatusNotifierItem> m_item;
    std::unique_ptr<StatusNotifierRegistration> m_registration;
    QString m_service;
    StatusHost m_host = StatusHost::Unknown;
};

} // namespace mintaro
