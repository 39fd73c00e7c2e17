#pragma once

#include <QAccessible>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

namespace mintaro {

/// What a screen reader calls it.
inline QString accessibleName(QQuickItem *item)
{
    QAccessibleInterface *interface = item ? QAccessible::queryAccessibleInterface(item) : nullptr;
    return interface ? interface->text(QAccessible::Name) : QString();
}

inline void collectItemsInSight(QQuickItem *item, QList<QQuickItem *> &items)
{
    if (!item->isVisible())
        return;
    items.append(item);
    for (QQuickItem *child : item->childItems())
        collectItemsInSight(child, items);
}

/// What the user can press or type in.
inline QList<QQuickItem *> controls(const QQuickWindow &window)
{
    QList<QQuickItem *> items;
    collectItemsInSight(window.contentItem(), items);
    items.removeIf(
        [](QQuickItem *item) { return !item->activeFocusOnTab() && !item->inherits("QQuickAbstractButton"); });
    return items;
}

/// Null where there is none of that name.
inline QQuickItem *control(const QQuickWindow &window, const QString &name)
{
    for (QQuickItem *item : controls(window)) {
        if (accessibleName(item) == name)
            return item;
    }
    return nullptr;
}

inline QPoint middle(QQuickItem *item)
{
    return item->mapToScene(QPointF(item->width() / 2, item->height() / 2)).toPoint();
}

/// False where there is none of that name.
inline bool click(QQuickWindow &window, const QString &name)
{
    QQuickItem *const item = control(window, name);
    if (item)
        QTest::mouseClick(&window, Qt::LeftButton, {}, middle(item));
    return item;
}

} // namespace mintaro
