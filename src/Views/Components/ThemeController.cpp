#include "Views/Components/ThemeController.h"

#include "Platform/Foundation/Color.h"

#include <QJSEngine>
#include <QQmlEngine>

#include <cmath>

namespace mintaro {

namespace {

constexpr double kTextContrast = 4.5;

struct Accent
{
    QColor fill;
    QColor text;
    QColor ground;
};

Accent standardAccent(bool isDark)
{
    return isDark ? Accent { 0x1f6fe5, 0x6aabff, 0x242427 } : Accent { 0x0a63e8, 0x0059d6, 0xf7f7f8 };
}

/// WCAG 2.1, "relative luminance".
double luminance(const QColor &color)
{
    const auto linear = [](double channel) {
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrastRatio(const QColor &a, const QColor &b)
{
    const auto [dark, light] = std::minmax({ luminance(a), luminance(b) });
    return (light + 0.05) / (dark + 0.05);
}

} // namespace

QColor legible(QColor foreground, const QColor &background, double contrast)
{
    constexpr int kSteps = 50;
    const bool darken = luminance(background) > 0.18;
    for (int i = 0; i < kSteps && contrastRatio(foreground, background) < contrast; ++i) {
        float hue = 0;
        float saturation = 0;
        float lightness = 0;
        foreground.getHslF(&hue, &saturation, &lightness);
        foreground = QColor::fromHslF(hue, saturation, std::clamp(lightness + (darken ? -0.02F : 0.02F), 0.0F, 1.0F));
    }
    return foreground;
}

ThemeController::ThemeController(const Appearance &appearance, const UserDefaults &defaults)
    : m_appearance(appearance)
    , m_defaults(defaults)
{
    connect(&appearance, &Appearance::changed, this, &ThemeController::changed);
    connect(&defaults, &UserDefaults::changed, this, [this](const QString &key) {
        if (key == QLatin1String("UseSystemAccent") || key == QLatin1String("AccentColorHex"))
            Q_EMIT changed();
    });
}

ThemeController *ThemeController::create(QQmlEngine *engine, QJSEngine *)
{
    auto *controller = engine->property("themeController").value<ThemeController *>();
    QJSEngine::setObjectOwnership(controller, QJSEngine::CppOwnership);
    return controller;
}

bool ThemeController::isDark() const
{
    return m_appearance.isDark();
}

QColor ThemeController::accent() const
{
    if (!m_defaults.boolForKey(QStringLiteral("UseSystemAccent")).value_or(true)) {
        const QString text = m_defaults.stringForKey(QStringLiteral("AccentColorHex")).value_or(QString());
        if (const auto color = Color::fromHex(text))
            return { color->red, color->green, color->blue };
    }
    return m_appearance.accentColor().value_or(QColor());
}

QColor ThemeController::accentFill() const
{
    const QColor own = accent();
    return own.isValid() ? legible(own, Qt::white, kTextContrast) : standardAccent(isDark()).fill;
}

QColor ThemeController::accentText() const
{
    const QColor own = accent();
    const Accent standard = standardAccent(isDark());
    return own.isValid() ? legible(own, standard.ground, kTextContrast) : standard.text;
}

} // namespace mintaro
