#pragma once

#include "Platform/EventKit/EventTime.h"
#include "Platform/EventKit/ICalComponent.h"

#include <QString>

#include <map>
#include <optional>

namespace mintaro {

/// Reads values out of the components of one object, with the object's own zones at hand, and keeps what was wrong.
class PropertyReader
{
public:
    /// `root` must outlive the reader.
    explicit PropertyReader(const ICalComponent &root)
        : m_root(root)
    {
    }

    /// A null text where the component does not have the property.
    [[nodiscard]] static QString text(const ICalComponent &component, QByteArrayView name);
    /// The value of a DATE or DATE-TIME property; empty where it is missing, and with a complaint where it is none.
    [[nodiscard]] std::optional<EventTime> time(const ICalComponent &component, QByteArrayView name);
    /// `value`, which stands in `property`, in the property's zone.
    [[nodiscard]] std::optional<EventTime> time(const ICalProperty &property, QByteArrayView value);
    /// A DURATION property; empty where it is missing, negative or none.
    [[nodiscard]] std::optional<EventLength> length(const ICalComponent &component);
    [[nodiscard]] std::optional<EventLength> length(const ICalProperty &property, QByteArrayView value);

    /// What was wrong with the object, for the log.
    [[nodiscard]] const Complaints &complaints() const { return m_complaints; }
    void complain(const QString &text) { m_complaints.add(text); }
    /// A value cannot be read, which leaves what it stands in damaged.
    void refuse(const ICalProperty &property);
    /// Whether a value was refused since the last call.
    [[nodiscard]] bool takeDamage() { return std::exchange(m_hasRefused, false); }

private:
    [[nodiscard]] std::optional<TimeZone> zone(const QString &tzid);
    void collectZones(const ICalComponent &parent);

    const ICalComponent &m_root;
    /// The object's own zones, in so far as anybody asked for one.
    std::optional<std::map<QString, const ICalComponent *>> m_ownZones;
    std::map<QString, std::optional<TimeZone>> m_zones;
    Complaints m_complaints;
    bool m_hasRefused = false;
};

/// The values of a list, as some programs write it also with semicolons.
[[nodiscard]] std::vector<QByteArrayView> listOf(const ICalProperty &property);

} // namespace mintaro
