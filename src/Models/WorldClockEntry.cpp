#include "Models/WorldClockEntry.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace mintaro {

namespace {

const QString kIdentifier = QStringLiteral("timezoneID");
const QString kDisplayName = QStringLiteral("displayName");

} // namespace

WorldClockEntry WorldClockEntry::forZone(const QString &timezoneID)
{
    return { timezoneID, timezoneID.section(u'/', -1).replace(u'_', u' ') };
}

QByteArray encoded(const std::vector<WorldClockEntry> &entries)
{
    QJsonArray array;
    for (const WorldClockEntry &entry : entries)
        array.append(QJsonObject { { kIdentifier, entry.timezoneID }, { kDisplayName, entry.displayName } });
    return QJsonDocument(array).toJson(QJsonDocument::Compact);
}

std::vector<WorldClockEntry> decodedWorldClockEntries(const QByteArray &json)
{
    std::vector<WorldClockEntry> entries;
    const QJsonArray array = QJsonDocument::fromJson(json).array();
    for (const auto &value : array) {
        const QJsonValue identifier = value[kIdentifier];
        const QJsonValue displayName = value[kDisplayName];
        if (!identifier.isString() || !displayName.isString())
            return {};
        entries.push_back({ identifier.toString(), displayName.toString() });
    }
    return entries;
}

} // namespace mintaro
