#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

namespace mintaro {

/// A time zone that the user keeps.
struct WorldClockEntry
{
    /// An IANA name, and the entry's identity.
    QString timezoneID;
    /// As it was named when it was added.
    QString displayName;

    /// Named after the place: "Buenos Aires" for America/Argentina/Buenos_Aires.
    [[nodiscard]] static WorldClockEntry forZone(const QString &timezoneID);

    friend bool operator==(const WorldClockEntry &, const WorldClockEntry &) = default;
};

/// As stored in the preferences: a JSON array of objects with the two members.
[[nodiscard]] QByteArray encoded(const std::vector<WorldClockEntry> &entries);
/// Empty for whatever is not wholly such an array.
[[nodiscard]] std::vector<WorldClockEntry> decodedWorldClockEntries(const QByteArray &json);

} // namespace mintaro
