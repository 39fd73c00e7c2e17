#include "Platform/AppKit/StatusItem.h"

#include "Platform/AppKit/DBusMenu.h"
#include "Platform/AppKit/StatusNotifierItem.h"
#include "Platform/AppKit/StatusNotifierRegistration.h"

#include <QCoreApplication>
#include <QDBusConnection>

#include <chrono>

namespace mintaro {

namespace {

constexpr std::chrono::seconds kPatience(5);
constexpr QLatin1String kItemPath("/StatusNotifierItem");
constexpr QLatin1String kMenuPath("/MenuBar");

} // namespace

StatusItem::StatusItem(QObject *parent)
    : QObject(parent)
    , m_menu(std::make_unique<DBusMenu>())
    , m_item(std::make_unique<StatusNotifierItem>(QDBusObjectPath(kMenuPath)))
{
    // Queued, so that the host gets its answer before anything opens.
    connect(m_item.get(), &StatusNotifierItem::clicked, this, &StatusItem::click, Qt::QueuedConnection);
    connect(m_menu.get(), &DBusMenu::trackingBegan, this, &StatusItem::menuTrackingBegan);
    connect(m_menu.get(), &DBusMenu::trackingEnded, this, &StatusItem::menuTrackingEnded);
}

StatusItem::~StatusItem()
{
    if (m_registration) {
        QDBusConnection::sessionBus().unregisterService(m_service);
    }
}

void StatusItem::start()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        Logger(QStringLiteral("Panel")).error(QStringLiteral("There is no session bus, so no panel shows the item"));
        QMetaObject::invokeMethod(
            this, [this] { setHost(StatusHost::None); }, Qt::QueuedConnection);
        return;
    }
    m_service = QStringLiteral("org.kde.StatusNotifierItem-%1-1").arg(QCoreApplication::applicationPid());
    constexpr auto kExported = QDBusConnection::ExportScriptableContents | QDBusConnection::ExportAllProperties;
    bus.registerObject(kMenuPath, m_menu.get(), kExported);
    bus.registerObject(kItemPath, m_item.get(), kExported);
    if (!bus.registerService(m_service)) {
        m_service = bus.baseService(); // serves as well, and is only less telling in a bus monitor
    }

    m_registration = std::make_unique<StatusNotifierRegistration>(bus, m_service, kPatience);
    connect(m_registration.get(), &StatusNotifierRegistration::hostChanged, this, &StatusItem::setHost);
    m_registration->start();
}

void StatusItem::setContent(const StatusItemContent &content)
{
    m_item->setContent(content);
}

void StatusItem::setIconColor(const QColor &color)
{
    m_item->setIconColor(color);
}

void StatusItem::setMenu(std::vector<MenuItem> items)
{
    m_menu->setItems(std::move(items));
}

void StatusItem::setHost(StatusHost host)
{
    m_host = host;
    m_item->setHost(host);
    Q_EMIT hostChanged(host);
}

void StatusItem::click(QPoint where)
{
    // Hosts that know no position send the origin.
    const bool trustworthy = tellsClickPosition(m_host) && !where.isNull();
    Q_EMIT activated(trustworthy ? std::optional(where) : std::nullopt);
}

} // namespace mintaro
