#include "main/MintaroApp.h"

#include "Extensions/DateHelpers.h"

#include "main/UpdateNotification.h"

#include <QCoreApplication>

namespace mintaro {

namespace {

constexpr std::size_t kMostMeetingsInMenu = 3;
/// Nobody reads a message in less.
constexpr qint64 kUnreadMs = 500;

QByteArray userAgent()
{
    return QStringLiteral("%1/%2")
        .arg(QCoreApplication::applicationName(), QCoreApplication::applicationVersion())
        .toUtf8();
}

} // namespace

MintaroApp::MintaroApp(const ContextOptions &options)
    : m_context(options)
    , m_workspace(AppContext::calendarConfigurationFolder())
    , m_desktopNotifications(QDBusConnection::sessionBus(), m_sounds)
    , m_userNotifications(m_context.environment(), m_desktopNotifications)
    , m_appDelegate(m_workspace)
    , m_appState(dependencies())
    , m_label(m_appState)
    , m_session(userAgent())
    , m_favicons(m_session, QStringLiteral(MINTARO_ICON_SERVICE))
    , m_hourlyChime(m_context.defaults(), m_context.environment(), m_sounds)
    , m_loginItem(SMAppService::Places::standard())
    , m_sparkleUpdater(m_session, m_context.defaults(), m_context.environment(), QStringLiteral(MINTARO_UPDATE_FEED),
          Bundle::mainBundle().version())
    , m_notificationPanel([this]() -> ViewEngine & { return views(); })
{
    m_desktopNotifications.setFallback(&m_notificationPanel);
    m_userNotifications.setDelegate(&m_appDelegate);
    m_userNotifications.setNotificationCategories({ updateCategory() });
    connect(&m_label, &MenuBarLabel::changed, this, &MintaroApp::updateStatusItem);
    connect(&m_appState, &AppState::nextEventChanged, this, [this] {
        updateStatusItem();
        updateMenu();
    });
    connect(&m_statusItem, &StatusItem::activated, this, &MintaroApp::onItemClicked);
    connect(&m_appearance, &Appearance::changed, this, &MintaroApp::updateIconColor);
    connect(&m_statusItem, &StatusItem::hostChanged, this, &MintaroApp::onHostChanged);
    connect(&m_appState, &AppState::errorMessageChanged, this, &MintaroApp::onErrorMessageChanged);
    connect(&m_sparkleUpdater.updaterController()->updater(), &SPUUpdater::finished, this,
        &MintaroApp::onUpdateCheckFinished);
}

MintaroApp::~MintaroApp() = default;

void MintaroApp::start()
{
    m_context.follow();
    updateStatusItem();
    updateMenu();
    updateIconColor();
    m_statusItem.start();
    m_label.appear();
}

void MintaroApp::showPopover()
{
    popover().showAt(anchor());
}

void MintaroApp::togglePopover()
{
    popover().toggleAt(anchor());
}

void MintaroApp::onItemClicked(std::optional<QPoint> where)
{
    if (where)
        m_lastClick = where;
    togglePopover();
}

void MintaroApp::openEventEditor(const std::optional<EKEvent> &existingEvent)
{
    if (!m_eventEditor)
        m_eventEditor = std::make_unique<EventEditorPanel>(m_appState, views());
    m_eventEditor->open(existingEvent);
}

void MintaroApp::openSettings()
{
    if (!m_settings) {
        const SettingsDependencies dependencies { m_appState, m_loginItem, m_sparkleUpdater, Bundle::mainBundle(),
            QStringLiteral(MINTARO_HOMEPAGE) };
        m_settings = std::make_unique<SettingsScene>(dependencies, views());
    }
    m_settings->open();
}

void MintaroApp::onUpdateCheckFinished(const SPUUpdateCheck &check)
{
    // Who asked reads the answer in the settings, if they are still open.
    const bool isRead = check.isByUser && m_settings && m_settings->window();
    if (check.item && !isRead)
        m_userNotifications.add(
            updateNotification(*check.item, Bundle::mainBundle().version(), m_context.environment()));
}

void MintaroApp::onErrorMessageChanged()
{
    if (m_appState.errorMessage().isEmpty())
        return;
    m_sinceError.start();
    // Later: an editor that is about to close would take the keyboard from the popover again.
    QMetaObject::invokeMethod(this, &MintaroApp::showError, Qt::QueuedConnection);
}

void MintaroApp::showError()
{
    if (!m_appState.errorMessage().isEmpty() && !isPopoverOpen())
        showPopover();
}

std::optional<QPoint> MintaroApp::anchor() const
{
    if (m_lastClick || !m_chip)
        return m_lastClick;
    return m_chip->geometry().center();
}

void MintaroApp::updateStatusItem()
{
    m_statusItem.setContent(
        { .day = m_label.day(), .label = m_label.text(), .title = m_label.text(), .toolTip = m_label.toolTip() });
}

void MintaroApp::updateIconColor()
{
    // Hosts that paint the icon themselves do not ask; the others are taken to be as dark as the desktop.
    m_statusItem.setIconColor(m_appearance.isDark() ? Qt::white : Qt::black);
}

void MintaroApp::updateMenu()
{
    std::vector<MenuItem> items;
    items.push_back({ .title = qtTrId("Show Calendar"), .action = [this] { showPopover(); } });
    items.push_back(MenuItem::separator());
    for (const CalendarEvent &event : m_appState.upcomingEvents()) {
        if (!event.meetingInfo)
            continue;
        const QString time = clockReading(event.startDate, m_context.environment().timeZone());
        items.push_back({ .title = qtTrId("menu.join %@ %@ %@").arg(time, event.title, event.meetingInfo->service),
            .action = [this, meeting = *event.meetingInfo] { m_appState.openMeeting(meeting); } });
        if (items.size() == kMostMeetingsInMenu + 2)
            break;
    }
    if (items.size() > 2)
        items.push_back(MenuItem::separator());
    items.push_back({ .title = qtTrId("Settings"), .action = [this] { openSettings(); } });
    items.push_back({ .title = qtTrId("Quit"), .action = [] { QCoreApplication::quit(); } });
    m_statusItem.setMenu(std::move(items));
}

void MintaroApp::onHostChanged(StatusHost host)
{
    m_lastClick.reset();
    if (host != StatusHost::None) {
        m_chip.reset();
        m_chipContent.reset();
        m_notificationPanel.setTop(0);
        return;
    }
    if (m_chip)
        return;
    m_chipContent = views().makeMenuBarLabel();
    m_chip = std::make_unique<PanelChip>();
    connect(m_chip.get(), &PanelChip::clicked, this, &MintaroApp::togglePopover);
    m_chip->setContent(m_chipContent.get());
    m_chip->showChip();
    m_notificationPanel.setTop(m_chip->height() + PanelChip::kGap);
    // Opened before it was clear that there is no panel, it stands where the chip is now.
    if (isPopoverOpen())
        showPopover();
}

AppState::Dependencies MintaroApp::dependencies()
{
    AppState::Dependencies dependencies = m_context.dependencies(m_workspace);
    dependencies.eventEditor = this;
    dependencies.settings = this;
    dependencies.pasteboard = &m_pasteboard;
    dependencies.calendarApplication = &m_calendarApplication;
    dependencies.userNotifications = &m_userNotifications;
    return dependencies;
}

ViewEngine &MintaroApp::views()
{
    if (!m_views)
        m_views = std::make_unique<ViewEngine>(m_appState, m_label, m_appearance, &m_favicons);
    return *m_views;
}

PopoverWindow &MintaroApp::popover()
{
    if (m_popover)
        return *m_popover;
    m_popoverContent = views().makeMainPopoverView();
    m_popover = std::make_unique<PopoverWindow>();
    m_popover->setContent(m_popoverContent.get());
    connect(m_popover.get(), &PopoverWindow::opened, this, &MintaroApp::onPopoverOpened);
    connect(m_popover.get(), &PopoverWindow::closed, this, &MintaroApp::onPopoverClosed);
    return *m_popover;
}

void MintaroApp::onPopoverOpened()
{
    m_appState.setPopoverVisible(true);
    m_appState.requestAccessAndLoad();
    m_appState.watchStoreChanges();
}

void MintaroApp::onPopoverClosed()
{
    const bool isUnread = m_sinceError.isValid() && m_sinceError.elapsed() < kUnreadMs;
    const QString unread = isUnread ? m_appState.errorMessage() : QString();
    m_appState.setPopoverVisible(false);
    // It comes back to be read, but only once, lest the popover fights for the keyboard.
    m_appState.setErrorMessage(unread);
    m_sinceError.invalidate();
}

} // namespace mintaro
