#include "Platform/AppKit/StatusNotifierItem.h"

#include "Platform/AppKit/PanelIcon.h"
#include "Platform/Foundation/Logger.h"

#include <utility>

namespace mintaro {

namespace {

constexpr int kPixmapSizes[] { 16, 22, 24, 32, 48 };

} // namespace

StatusNotifierItem::StatusNotifierItem(QDBusObjectPath menu, QObject *parent)
    : QObject(parent)
    , m_menu(std::move(menu))
{
    registerStatusNotifierTypes();
}

void StatusNotifierItem::setContent(const StatusItemContent &content)
{
    if (content.day != m_content.day) {
        m_themedIcon.setDay(content.day);
    }
    announce(std::exchange(m_content, content), content);
}

void StatusNotifierItem::announce(const StatusItemContent &before, const StatusItemContent &after)
{
    if (before.day != after.day) {
        Q_EMIT NewIcon();
    }
    if (before.title != after.title) {
        Q_EMIT NewTitle();
    }
    if (before.title != after.title || before.toolTip != after.toolTip) {
        Q_EMIT NewToolTip();
    }
    if (before.label != after.label) {
        Q_EMIT XAyatanaNewLabel(after.label, after.label);
    }
}

void StatusNotifierItem::setHost(StatusHost host)
{
    const QString iconBefore = iconName();
    const StatusNotifierToolTip toolTipBefore = toolTip();
    m_host = host;
    if (iconName() != iconBefore) {
        Q_EMIT NewIcon();
    }
    if (toolTip() != toolTipBefore) {
        Q_EMIT NewToolTip();
    }
}

void StatusNotifierItem::setIconColor(const QColor &color)
{
    if (std::exchange(m_iconColor, color) != color && iconName().isEmpty()) {
        Q_EMIT NewIcon();
    }
}

QString StatusNotifierItem::category() const
{
    return QStringLiteral("ApplicationStatus");
}

QString StatusNotifierItem::id() const
{
    return QLatin1String(kSubsystem);
}

QString StatusNotifierItem::status() const
{
    return QStringLiteral("Active");
}

QString StatusNotifierItem::iconName() const
{
    return recolorsSymbolicIcons(m_host) ? m_themedIcon.name() : QString();
}

QList<StatusNotifierPixmap> StatusNotifierItem::iconPixmap() const
{
    QList<StatusNotifierPixmap> pixmaps;
    for (const int size : kPixmapSizes) {
        pixmaps.append(StatusNotifierPixmap::fromImage(PanelIcon(m_content.day, size).image(m_iconColor)));
    }
    return pixmaps;
}

StatusNotifierToolTip StatusNotifierItem::toolTip() const
{
    const ToolTipMarkup markup = toolTipMarkup(m_host);
    StatusNotifierToolTip result;
    result.title = markup == ToolTipMarkup::TitleAndText ? m_content.title.toHtmlEscaped() : m_content.title;
    result.text = markup == ToolTipMarkup::None ? m_content.toolTip : m_content.toolTip.toHtmlEscaped();
    return result;
}

void StatusNotifierItem::Activate(int x, int y)
{
    Q_EMIT clicked({ x, y });
}

void StatusNotifierItem::SecondaryActivate(int x, int y)
{
    Q_EMIT clicked({ x, y });
}

void StatusNotifierItem::ContextMenu(int, int) { }

void StatusNotifierItem::Scroll(int, const QString &) { }

} // namespace mintaro
