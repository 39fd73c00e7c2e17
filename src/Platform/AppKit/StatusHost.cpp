#include "Platform/AppKit/StatusHost.h"

#include <QLatin1String>

#include <algorithm>
#include <array>

namespace mintaro {

namespace {

struct ProcessName
{
    QLatin1String prefix;
    StatusHost host;
};

constexpr std::array kProcessNames {
    ProcessName { QLatin1String("gnome-shell"), StatusHost::Gnome },
    ProcessName { QLatin1String("panel-"), StatusHost::Xfce }, // panel-N-systray, the panel's plugin process
    ProcessName { QLatin1String("xfce4-panel"), StatusHost::Xfce },
    ProcessName { QLatin1String("kded"), StatusHost::Plasma },
    ProcessName { QLatin1String("plasmashell"), StatusHost::Plasma },
    ProcessName { QLatin1String("lxqt-panel"), StatusHost::Lxqt },
    ProcessName { QLatin1String("waybar"), StatusHost::Waybar },
};

} // namespace

StatusHost statusHostOfProcess(QStringView processName)
{
    const auto found = std::find_if(kProcessNames.begin(), kProcessNames.end(),
        [&](const ProcessName &known) { return processName.startsWith(known.prefix); });
    return found == kProcessNames.end() ? StatusHost::Other : found->host;
}

bool recolorsSymbolicIcons(StatusHost host)
{
    return host == StatusHost::Gnome || host == StatusHost::Xfce || host == StatusHost::Plasma;
}

ToolTipMarkup toolTipMarkup(StatusHost host)
{
    switch (host) {
    case StatusHost::Plasma:
    case StatusHost::Lxqt:
        return ToolTipMarkup::None;
    case StatusHost::Waybar:
        return ToolTipMarkup::TitleAndText;
    default:
        return ToolTipMarkup::Text;
    }
}

bool tellsClickPosition(StatusHost host)
{
    return host != StatusHost::Waybar; // it counts from the icon's corner
}

} // namespace mintaro
