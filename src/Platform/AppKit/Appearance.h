#pragma once

#include <QColor>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QVariant>

#include <optional>

namespace mintaro {

/// The desktop's dark mode and accent colour, from the Settings portal (org.freedesktop.portal.Settings, namespace
/// org.freedesktop.appearance). The values arrive some time after construction; until then, and without a portal, the
/// palette tells. Lives on the main thread.
class Appearance : public QObject
{
    Q_OBJECT

public:
    explicit Appearance(QDBusConnection bus = QDBusConnection::sessionBus(), QObject *parent = nullptr);

    [[nodiscard]] bool isDark() const;
    /// Empty where the desktop has none.
    [[nodiscard]] std::optional<QColor> accentColor() const { return m_accent; }

Q_SIGNALS:
    void changed();

private Q_SLOTS:
    void settingChanged(const QDBusMessage &signal);

private:
    void read(const QString &key);
    /// `value` may be wrapped in further variants.
    void take(const QString &key, const QVariant &value);

    QDBusConnection m_bus;
    std::optional<bool> m_dark;
    std::optional<QColor> m_accent;
};

} // namespace mintaro
