#pragma once

#include "Platform/AppKit/Appearance.h"
#include "Platform/AppKit/PopoverWindow.h"
#include "Platform/Foundation/UserDefaults.h"

#include <QColor>
#include <QObject>
#include <QtQml/qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace mintaro {

/// What the theme takes from the desktop and from the user: dark or light, and the accent.
class ThemeController : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool isDark READ isDark NOTIFY changed)
    Q_PROPERTY(QColor accentFill READ accentFill NOTIFY changed)
    Q_PROPERTY(QColor accentText READ accentText NOTIFY changed)
    Q_PROPERTY(QSize popoverSize READ popoverSize CONSTANT)
    Q_PROPERTY(int cornerRadius READ cornerRadius CONSTANT)
    Q_PROPERTY(int shadowMargin READ shadowMargin CONSTANT)

public:
    /// Both must outlive the object.
    ThemeController(const Appearance &appearance, const UserDefaults &defaults);
    /// The one that stands as the engine's property "themeController".
    static ThemeController *create(QQmlEngine *engine, QJSEngine *scriptEngine);

    [[nodiscard]] bool isDark() const;
    /// Behind white text.
    [[nodiscard]] QColor accentFill() const;
    /// As text or symbol on the window's ground, with a contrast of at least 4.5 to 1.
    [[nodiscard]] QColor accentText() const;
    // The window decides, for its shadow and its mask follow them.
    [[nodiscard]] static QSize popoverSize() { return PopoverWindow::kCardSize; }
    [[nodiscard]] static int cornerRadius() { return PopoverWindow::kCornerRadius; }
    [[nodiscard]] static int shadowMargin() { return PopoverWindow::kShadowMargin; }

Q_SIGNALS:
    void changed();

private:
    /// The user's, else the desktop's; invalid where neither has one.
    [[nodiscard]] QColor accent() const;

    const Appearance &m_appearance;
    const UserDefaults &m_defaults;
};

/// `foreground` made darker or lighter, in steps, until it stands out from `background` by `contrast` to 1
/// (WCAG 2.1, 1.4.3) or can go no further.
[[nodiscard]] QColor legible(QColor foreground, const QColor &background, double contrast);

} // namespace mintaro
