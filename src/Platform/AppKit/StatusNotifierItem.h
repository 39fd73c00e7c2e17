#pragma once

#include "Platform/AppKit/StatusHost.h"
#include "Platform/AppKit/StatusItemContent.h"
#include "Platform/AppKit/StatusNotifierTypes.h"
#include "Platform/AppKit/ThemedDayIcon.h"

#include <QColor>
#include <QDBusObjectPath>
#include <QObject>
#include <QPoint>

namespace mintaro {

/// The item as hosts read it over D-Bus: org.kde.StatusNotifierItem of the freedesktop StatusNotifierItem
/// specification, with the label of Ayatana hosts. Export its scriptable parts and its properties. Names and types of
/// the members are those of the interface.
class StatusNotifierItem : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierItem")
    Q_PROPERTY(QString Category READ category CONSTANT)
    Q_PROPERTY(QString Id READ id CONSTANT)
    Q_PROPERTY(QString Title READ title)
    Q_PROPERTY(QString Status READ status CONSTANT)
    Q_PROPERTY(int WindowId READ windowId CONSTANT)
    Q_PROPERTY(QString IconName READ iconName)
    Q_PROPERTY(QString IconThemePath READ iconThemePath CONSTANT)
    Q_PROPERTY(QList<mintaro::StatusNotifierPixmap> IconPixmap READ iconPixmap)
    Q_PROPERTY(mintaro::StatusNotifierToolTip ToolTip READ toolTip)
    Q_PROPERTY(bool ItemIsMenu READ itemIsMenu CONSTANT)
    Q_PROPERTY(QDBusObjectPath Menu READ menu CONSTANT)
    Q_PROPERTY(QString XAyatanaLabel READ label)
    Q_PROPERTY(QString XAyatanaLabelGuide READ label)

public:
    explicit StatusNotifierItem(QDBusObjectPath menu, QObject *parent = nullptr);

    /// Each tells the host exactly what of the item's looks changed by it.
    void setContent(const StatusItemContent &content);
    void setHost(StatusHost host);
    void setIconColor(const QColor &color);

    [[nodiscard]] QString category() const;
    [[nodiscard]] QString id() const;
    [[nodiscard]] QString title() const { return m_content.title; }
    [[nodiscard]] QString status() const;
    [[nodiscard]] int windowId() const { return 0; }
    /// Empty where the host would not recolour the themed icon, so that it takes the pixels.
    [[nodiscard]] QString iconName() const;
    [[nodiscard]] QString iconThemePath() const { return m_themedIcon.themePath(); }
    [[nodiscard]] QList<StatusNotifierPixmap> iconPixmap() const;
    [[nodiscard]] StatusNotifierToolTip toolTip() const;
    [[nodiscard]] bool itemIsMenu() const { return false; }
    [[nodiscard]] QDBusObjectPath menu() const { return m_menu; }
    [[nodiscard]] QString label() const { return m_content.label; }

public Q_SLOTS:
    Q_SCRIPTABLE void Activate(int x, int y);
    Q_SCRIPTABLE void SecondaryActivate(int x, int y);
    /// Hosts show the exported menu themselves.
    Q_SCRIPTABLE void ContextMenu(int x, int y);
    Q_SCRIPTABLE void Scroll(int delta, const QString &orientation);

Q_SIGNALS:
    /// The item was clicked; the point is what the host told, whatever it means there.
    void clicked(QPoint where);

    Q_SCRIPTABLE void NewTitle();
    Q_SCRIPTABLE void NewIcon();
    Q_SCRIPTABLE void NewToolTip();
    Q_SCRIPTABLE void XAyatanaNewLabel(const QString &label, const QString &guide);

private:
    void announce(const StatusItemContent &before, const StatusItemContent &after);

    const QDBusObjectPath m_menu;
    ThemedDayIcon m_themedIcon;
    StatusItemContent m_content;
    StatusHost m_host = StatusHost::Unknown;
    QColor m_iconColor { 0xf2, 0xf2, 0xf2 }; // most panels are dark
};

} // namespace mintaro
