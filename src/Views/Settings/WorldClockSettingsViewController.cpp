#include "Views/Settings/WorldClockSettingsViewController.h"

namespace mintaro {

namespace {

const QString kStorageKey = QStringLiteral("WorldClockEntries");

} // namespace

WorldClockSettingsViewController::WorldClockSettingsViewController(AppState &appState)
    : m_appState(appState)
{
    connect(&appState.defaults(), &UserDefaults::changed, this, [this](const QString &key) {
        if (key == kStorageKey)
            loadEntries();
    });
    connect(&appState, &AppState::significantTimeChange, this, &WorldClockSettingsViewController::rowsChanged);
}

QList<WorldClockRow> WorldClockSettingsViewController::rows() const
{
    const auto now = std::chrono::floor<std::chrono::seconds>(m_appState.environment().now());
    QList<WorldClockRow> rows;
    for (const WorldClockEntry &entry : m_entries) {
        const auto zone = TimeZone::named(entry.timezoneID);
        rows.append({ entry.timezoneID, entry.displayName, zone ? zone->abbreviation(now) : QString() });
    }
    return rows;
}

void WorldClockSettingsViewController::setShowingPicker(bool isShowing)
{
    if (std::exchange(m_isShowingPicker, isShowing) != isShowing)
        Q_EMIT isShowingPickerChanged();
}

void WorldClockSettingsViewController::loadEntries()
{
    m_entries = decodedWorldClockEntries(m_appState.defaults().dataForKey(kStorageKey));
    Q_EMIT rowsChanged();
}

void WorldClockSettingsViewController::add(const QString &timezoneID)
{
    m_entries.push_back(WorldClockEntry::forZone(timezoneID));
    saveEntries();
}

void WorldClockSettingsViewController::remove(const QString &timezoneID)
{
    std::erase_if(m_entries, [&](const WorldClockEntry &entry) { return entry.timezoneID == timezoneID; });
    saveEntries();
}

void WorldClockSettingsViewController::saveEntries()
{
    // Which tells of the change, too.
    m_appState.defaults().setData(encoded(m_entries), kStorageKey);
}

} // namespace mintaro
