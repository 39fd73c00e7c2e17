#include "Views/EventEditor/AlertPickerController.h"

#include <algorithm>
#include <array>

namespace mintaro {

using namespace std::chrono_literals;

namespace {

constexpr std::array<std::optional<std::chrono::seconds>, 8> kOffsets { std::nullopt, 0s, -5min, -10min, -15min, -30min,
    -1h, -24h };

} // namespace

void AlertPickerController::setAlertOffset(const std::optional<std::chrono::seconds> &offset)
{
    if (offset == m_alertOffset)
        return;
    m_alertOffset = offset;
    if (const auto row = std::ranges::find(kOffsets, offset); row != kOffsets.end())
        m_selectedIndex = static_cast<int>(row - kOffsets.begin());
    Q_EMIT alertOffsetChanged();
}

QStringList AlertPickerController::options() const
{
    return { qtTrId("alert.none"), qtTrId("alert.atTimeOfEvent"), qtTrId("alert.5min"), qtTrId("alert.10min"),
        qtTrId("alert.15min"), qtTrId("alert.30min"), qtTrId("alert.1hour"), qtTrId("alert.1day") };
}

void AlertPickerController::pick(int index)
{
    if (index < 0 || index >= static_cast<int>(kOffsets.size()))
        return;
    const auto &offset = kOffsets[static_cast<std::size_t>(index)];
    if (offset == m_alertOffset)
        return;
    setAlertOffset(offset);
    Q_EMIT picked();
}

} // namespace mintaro
