#pragma once

#include "App/AppState.h"
#include "Models/WorldClockEntry.h"

#include <QtQml/qqml.h>

namespace mintaro {

/// A row of the World Clock tab.
struct WorldClockRow
{
    Q_GADGET
    QML_VALUE_TYPE(worldClockRow)
    Q_PROPERTY(QString timezoneID MEMBER timezoneID)
    Q_PROPERTY(QString displayName MEMBER displayName)
    /// Of the time that holds there now; empty where the system does not know the zone.
    Q_PROPERTY(QString abbreviation MEMBER abbreviation)

public:
    QString timezoneID;
    QString displayName;
    QString abbreviation;
};

/// The World Clock tab: the time zones that the user keeps.
class WorldClockSettingsViewController : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The settings have one")
    Q_PROPERTY(QList<mintaro::WorldClockRow> rows READ rows NOTIFY rowsChanged)
    Q_PROPERTY(bool isShowingPicker READ isShowingPicker WRITE setShowingPicker NOTIFY isShowingPickerChanged)

public:
    /// `appState` must outlive the object.
    explicit WorldClockSettingsViewController(AppState &appState);

    [[nodiscard]] QList<WorldClockRow> rows() const;
    [[nodiscard]] bool isShowingPicker() const { return m_isShowingPicker; }
    void setShowingPicker(bool isShowing);

    /// Reads the list anew; to be called each time the tab appears. What cannot be read is an empty list, over which
    /// the next change writes.
    Q_INVOKABLE void loadEntries();
    /// At the end of the list, also where it is there already.
    void add(const QString &timezoneID);
    /// Every entry of that zone.
    Q_INVOKABLE void remove(const QString &timezoneID);

Q_SIGNALS:
    void rowsChanged();
    void isShowingPickerChanged();

private:
    void saveEntries();

    AppState &m_appState;
    std::vector<WorldClockEntry> m_entries;
    bool m_isShowingPicker = false;
};

} // namespace mintaro
