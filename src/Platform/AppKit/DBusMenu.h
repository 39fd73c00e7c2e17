#pragma once

#include "Platform/AppKit/DBusMenuTypes.h"
#include "Platform/AppKit/MenuItem.h"

#include <QObject>
#include <QStringList>

#include <vector>

namespace mintaro {

/// A flat menu that another process shows: com.canonical.dbusmenu, version 3. Export its scriptable parts and its
/// properties. Names and types of the members are those of the interface; the root has the id 0.
class DBusMenu : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.canonical.dbusmenu")
    Q_PROPERTY(uint Version READ version CONSTANT)
    Q_PROPERTY(QString TextDirection READ textDirection)
    Q_PROPERTY(QString Status READ status CONSTANT)
    Q_PROPERTY(QStringList IconThemePath READ iconThemePath CONSTANT)

public:
    explicit DBusMenu(QObject *parent = nullptr);

    /// Entries that look as before only get their new actions, without any traffic.
    void setItems(std::vector<MenuItem> items);

    [[nodiscard]] uint version() const { return 3; }
    [[nodiscard]] QString textDirection() const;
    [[nodiscard]] QString status() const;
    [[nodiscard]] QStringList iconThemePath() const { return {}; }

public Q_SLOTS:
    /// An unknown parent yields an empty layout of that id. No property names: all properties.
    Q_SCRIPTABLE uint GetLayout(
        int parentId, int recursionDepth, const QStringList &propertyNames, mintaro::DBusMenuLayout &layout);
    /// No ids: all entries. Unknown ids are left out.
    Q_SCRIPTABLE QList<mintaro::DBusMenuProperties> GetGroupProperties(
        const QList<int> &ids, const QStringList &propertyNames);
    Q_SCRIPTABLE QDBusVariant GetProperty(int id, const QString &name);
    Q_SCRIPTABLE void Event(int id, const QString &kind, const QDBusVariant &data, uint timestamp);
    /// Answers with the ids that are unknown.
    Q_SCRIPTABLE QList<int> EventGroup(const QList<mintaro::DBusMenuEvent> &events);
    Q_SCRIPTABLE bool AboutToShow(int id);
    Q_SCRIPTABLE QList<int> AboutToShowGroup(const QList<int> &ids, QList<int> &idErrors);

Q_SIGNALS:
    /// The menu came up and went, where the host tells.
    void trackingBegan();
    void trackingEnded();

    Q_SCRIPTABLE void LayoutUpdated(uint revision, int parent);

private:
    /// Ids are never used again, so that a click in a menu that is still open means the entry that the user saw.
    struct Layout
    {
        int firstId = 1;
        std::vector<MenuItem> items;

        [[nodiscard]] const MenuItem *item(int id) const;
    };

    [[nodiscard]] const MenuItem *clickable(int id) const;

    Layout m_current;
    Layout m_previous;
    uint m_revision = 1;
};

} // namespace mintaro
