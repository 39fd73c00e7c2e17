#include "Platform/AppKit/Appearance.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QGuiApplication>
#include <QPalette>

#include <algorithm>
#include <array>
#include <utility>

namespace mintaro {

namespace {

constexpr QLatin1String kService("org.freedesktop.portal.Desktop");
constexpr QLatin1String kPath("/org/freedesktop/portal/desktop");
constexpr QLatin1String kInterface("org.freedesktop.portal.Settings");
constexpr QLatin1String kGroup("org.freedesktop.appearance");
constexpr QLatin1String kColorScheme("color-scheme");
constexpr QLatin1String kAccentColor("accent-color");

/// Read wraps the value twice, SettingChanged once.
QVariant unwrapped(QVariant value)
{
    while (value.metaType() == QMetaType::fromType<QDBusVariant>()) {
        value = value.value<QDBusVariant>().variant();
    }
    return value;
}

/// 1 is dark, 2 light, anything else no preference.
std::optional<bool> darkness(const QVariant &colorScheme)
{
    const uint value = colorScheme.toUInt();
    return value == 1 || value == 2 ? std::optional(value == 1) : std::nullopt;
}

/// (ddd), red, green and blue from 0 to 1; out of that range means none.
std::optional<QColor> color(const QVariant &value)
{
    if (value.metaType() != QMetaType::fromType<QDBusArgument>()) {
        return std::nullopt;
    }
    const auto argument = value.value<QDBusArgument>(); // const: reading from another one aborts
    if (argument.currentSignature() != QLatin1String("(ddd)")) {
        return std::nullopt;
    }
    std::array<double, 3> parts {};
    argument.beginStructure();
    argument >> parts[0] >> parts[1] >> parts[2];
    argument.endStructure();
    const bool valid = std::all_of(parts.begin(), parts.end(), [](double part) { return part >= 0 && part <= 1; });
    return valid ? std::optional(QColor::fromRgbF(float(parts[0]), float(parts[1]), float(parts[2]))) : std::nullopt;
}

} // namespace

Appearance::Appearance(QDBusConnection bus, QObject *parent)
    : QObject(parent)
    , m_bus(std::move(bus))
{
    m_bus.connect(
        kService, kPath, kInterface, QStringLiteral("SettingChanged"), this, SLOT(settingChanged(QDBusMessage)));
    read(kColorScheme);
    read(kAccentColor);
}

void Appearance::read(const QString &key)
{
    QDBusMessage call = QDBusMessage::createMethodCall(kService, kPath, kInterface, QStringLiteral("Read"));
    call.setArguments({ QString(kGroup), key });
    auto *pending = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this, [this, key, pending] {
        pending->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *pending;
        if (reply.isValid()) {
            take(key, reply.value().variant());
        }
    });
}

void Appearance::settingChanged(const QDBusMessage &signal)
{
    const QVariantList arguments = signal.arguments();
    if (signal.signature() == QLatin1String("ssv") && arguments.at(0).toString() == kGroup) {
        take(arguments.at(1).toString(), arguments.at(2));
    }
}

void Appearance::take(const QString &key, const QVariant &value)
{
    const auto before = std::pair(isDark(), m_accent);
    if (key == kColorScheme) {
        m_dark = darkness(unwrapped(value));
    } else if (key == kAccentColor) {
        m_accent = color(unwrapped(value));
    }
    if (std::pair(isDark(), m_accent) != before) {
        Q_EMIT changed();
    }
}

bool Appearance::isDark() const
{
    return m_dark.value_or(QGuiApplication::palette().color(QPalette::Window).lightness() < 128);
}

} // namespace mintaro
