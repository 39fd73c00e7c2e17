#pragma once

#include "Platform/EventKit/EventTime.h"
#include "Platform/EventKit/ICalHandle.h"

#include <QString>
#include <QStringList>

#include <map>
#include <optional>

namespace mintaro {

/// Reads values out of the components of one parsed object, with the object's own zones at hand.
class PropertyReader
{
public:
    /// `root` must outlive the reader.
    explicit PropertyReader(icalcomponent *root);

    /// A null text where the component does not have the property.
    [[nodiscard]] QString text(icalcomponent *component, icalproperty_kind kind) const;
    /// The value of a DATE or DATE-TIME property; empty where it is missing or impossible.
    [[nodiscard]] std::optional<EventTime> time(icalcomponent *component, icalproperty_kind kind);
    [[nodiscard]] std::optional<EventTime> time(icalproperty *property);
    /// `value`, which stands in `property`, in the property's zone.
    [[nodiscard]] std::optional<EventTime> time(icalproperty *property, const icaltimetype &value);

    /// What was wrong with the object, for the log.
    [[nodiscard]] const QStringList &complaints() const { return m_complaints; }
    void complain(const QString &text);

private:
    [[nodiscard]] std::optional<TimeZone> zone(const QString &tzid);

    icalcomponent *m_root;
    std::map<QString, std::optional<TimeZone>> m_zones;
    QStringList m_complaints;
};

/// Empty for a negative duration and for one that makes no sense.
[[nodiscard]] std::optional<EventLength> readLength(const icaldurationtype &duration);

/// The value of a property as it would be written.
[[nodiscard]] QByteArray rawValue(icalproperty *property);

/// The parser left something of the component or of its parts out.
[[nodiscard]] bool isDamaged(icalcomponent *component);

} // namespace mintaro
