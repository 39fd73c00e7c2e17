#pragma once

#include <QObject>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include <chrono>
#include <optional>

namespace mintaro {

/// When an event gives notice, as one of a few rows. An offset that has no row is kept until the user picks one.
class AlertPickerController : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(
        std::optional<std::chrono::seconds> alertOffset READ alertOffset WRITE setAlertOffset NOTIFY alertOffsetChanged)
    Q_PROPERTY(QList<QString> options READ options CONSTANT)
    Q_PROPERTY(int selectedIndex READ selectedIndex NOTIFY alertOffsetChanged)

public:
    using QObject::QObject;

    /// From the event's start on: negative before it.
    [[nodiscard]] const std::optional<std::chrono::seconds> &alertOffset() const { return m_alertOffset; }
    void setAlertOffset(const std::optional<std::chrono::seconds> &offset);
    [[nodiscard]] QStringList options() const;
    /// Stays where it was for an offset that has no row.
    [[nodiscard]] int selectedIndex() const { return m_selectedIndex; }

    /// The user's choice of a row.
    Q_INVOKABLE void pick(int index);

Q_SIGNALS:
    void alertOffsetChanged();
    /// The user changed the offset.
    void picked();

private:
    std::optional<std::chrono::seconds> m_alertOffset;
    int m_selectedIndex = 0;
};

} // namespace mintaro
