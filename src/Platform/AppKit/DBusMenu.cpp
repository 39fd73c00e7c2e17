#include "Platform/AppKit/DBusMenu.h"

#include <QGuiApplication>

#include <algorithm>
#include <utility>

namespace mintaro {

namespace {

constexpr int kRoot = 0;

bool looksLike(const MenuItem &a, const MenuItem &b)
{
    return a.title == b.title && a.enabled == b.enabled && a.isSeparator == b.isSeparator;
}

/// A single underscore would mark a mnemonic.
QString labelText(QString title)
{
    return title.replace(QLatin1Char('_'), QLatin1String("__"));
}

QVariantMap allProperties(const MenuItem &item)
{
    if (item.isSeparator) {
        return { { QStringLiteral("type"), QStringLiteral("separator") } };
    }
    return { { QStringLiteral("label"), labelText(item.title) }, { QStringLiteral("enabled"), item.enabled } };
}

QVariantMap rootProperties()
{
    return { { QStringLiteral("children-display"), QStringLiteral("submenu") } };
}

QVariantMap chosen(const QVariantMap &properties, const QStringList &names)
{
    if (names.isEmpty()) {
        return properties;
    }
    QVariantMap result;
    for (auto it = properties.begin(); it != properties.end(); ++it) {
        if (names.contains(it.key())) {
            result.insert(it.key(), it.value());
        }
    }
    return result;
}

} // namespace

DBusMenu::DBusMenu(QObject *parent)
    : QObject(parent)
{
    registerDBusMenuTypes();
}

const MenuItem *DBusMenu::Layout::item(int id) const
{
    const auto index = static_cast<std::size_t>(id - firstId);
    return id >= firstId && index < items.size() ? &items[index] : nullptr;
}

void DBusMenu::setItems(std::vector<MenuItem> items)
{
    const bool same = std::equal(items.begin(), items.end(), m_current.items.begin(), m_current.items.end(), looksLike);
    if (same) {
        m_current.items = std::move(items);
        return;
    }
    const int nextId = m_current.firstId + static_cast<int>(m_current.items.size());
    m_previous = std::exchange(m_current, Layout { nextId, std::move(items) });
    Q_EMIT LayoutUpdated(++m_revision, kRoot);
}

QString DBusMenu::textDirection() const
{
    const bool rightToLeft = QGuiApplication::layoutDirection() == Qt::RightToLeft;
    return rightToLeft ? QStringLiteral("rtl") : QStringLiteral("ltr");
}

QString DBusMenu::status() const
{
    return QStringLiteral("normal");
}

uint DBusMenu::GetLayout(int parentId, int recursionDepth, const QStringList &propertyNames, DBusMenuLayout &layout)
{
    layout.id = parentId;
    if (parentId != kRoot) {
        const MenuItem *item = m_current.item(parentId);
        layout.properties = item ? chosen(allProperties(*item), propertyNames) : QVariantMap();
        return m_revision;
    }
    layout.properties = chosen(rootProperties(), propertyNames);
    for (int id = m_current.firstId; recursionDepth != 0 && m_current.item(id); ++id) {
        layout.children.append({ id, chosen(allProperties(*m_current.item(id)), propertyNames), {} });
    }
    return m_revision;
}

QList<DBusMenuProperties> DBusMenu::GetGroupProperties(const QList<int> &ids, const QStringList &propertyNames)
{
    QList<DBusMenuProperties> result;
    if (ids.isEmpty() || ids.contains(kRoot)) {
        result.append({ kRoot, chosen(rootProperties(), propertyNames) });
    }
    for (int id = m_current.firstId; m_current.item(id); ++id) {
        if (ids.isEmpty() || ids.contains(id)) {
            result.append({ id, chosen(allProperties(*m_current.item(id)), propertyNames) });
        }
    }
    return result;
}

QDBusVariant DBusMenu::GetProperty(int id, const QString &name)
{
    const MenuItem *item = m_current.item(id);
    const QVariantMap properties = id == kRoot ? rootProperties() : item ? allProperties(*item) : QVariantMap();
    return QDBusVariant(properties.value(name, QString())); // a variant without a value cannot be sent
}

const MenuItem *DBusMenu::clickable(int id) const
{
    const MenuItem *item = m_current.item(id);
    return item ? item : m_previous.item(id);
}

void DBusMenu::Event(int id, const QString &kind, const QDBusVariant &, uint)
{
    if (kind == QLatin1String("opened") && id == kRoot) {
        Q_EMIT trackingBegan();
    } else if (kind == QLatin1String("closed") && id == kRoot) {
        Q_EMIT trackingEnded();
    } else if (const MenuItem *item = clickable(id);
               item && item->enabled && item->action && kind == QLatin1String("clicked")) {
        // The host gets its answer first: an action may take long and may replace this menu.
        QMetaObject::invokeMethod(this, item->action, Qt::QueuedConnection);
    }
}

QList<int> DBusMenu::EventGroup(const QList<DBusMenuEvent> &events)
{
    QList<int> unknown;
    for (const DBusMenuEvent &event : events) {
        if (event.id != kRoot && !clickable(event.id)) {
            unknown.append(event.id);
        }
        Event(event.id, event.kind, event.data, event.timestamp);
    }
    return unknown;
}

bool DBusMenu::AboutToShow(int)
{
    return false; // the layout is always up to date
}

QList<int> DBusMenu::AboutToShowGroup(const QList<int> &ids, QList<int> &idErrors)
{
    std::copy_if(
        ids.begin(), ids.end(), std::back_inserter(idErrors), [this](int id) { return id != kRoot && !clickable(id); });
    return {};
}

} // namespace mintaro
