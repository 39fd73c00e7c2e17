#include "Platform/EventKit/ZoneResolver.h"

#include "Platform/EventKit/ICalValue.h"

#include <QHash>
#include <QMutex>
#include <QTimeZone>

#include <map>

namespace mintaro {

namespace {

/// Names in lower case to IANA names in use.
const QHash<QString, QString> &databaseNames()
{
    static const auto names = [] {
        QHash<QString, QString> result;
        for (const QByteArray &id : QTimeZone::availableTimeZoneIds()) {
            const QString name = QString::fromLatin1(id);
            result.insert(name.toLower(), name);
        }
        return result;
    }();
    return names;
}

/// Names that programs write and that are neither IANA's nor Windows' own, in lower case.
const QHash<QString, QString> &aliases()
{
    static const QHash<QString, QString> names {
        { QStringLiteral("z"), QStringLiteral("UTC") },
        { QStringLiteral("utc"), QStringLiteral("UTC") },
        { QStringLiteral("gmt"), QStringLiteral("UTC") },
        { QStringLiteral("coordinated universal time"), QStringLiteral("UTC") },
        { QStringLiteral("greenwich mean time"), QStringLiteral("UTC") },
        { QStringLiteral("us-eastern"), QStringLiteral("America/New_York") },
        { QStringLiteral("us-central"), QStringLiteral("America/Chicago") },
        { QStringLiteral("us-mountain"), QStringLiteral("America/Denver") },
        { QStringLiteral("us-pacific"), QStringLiteral("America/Los_Angeles") },
        { QStringLiteral("eastern time (us & canada)"), QStringLiteral("America/New_York") },
        { QStringLiteral("central time (us & canada)"), QStringLiteral("America/Chicago") },
        { QStringLiteral("mountain time (us & canada)"), QStringLiteral("America/Denver") },
        { QStringLiteral("pacific time (us & canada)"), QStringLiteral("America/Los_Angeles") },
        { QStringLiteral("eastern"), QStringLiteral("America/New_York") },
        { QStringLiteral("central"), QStringLiteral("America/Chicago") },
        { QStringLiteral("mountain"), QStringLiteral("America/Denver") },
        { QStringLiteral("pacific"), QStringLiteral("America/Los_Angeles") },
        { QStringLiteral("amsterdam, berlin, bern, rome, stockholm, vienna"), QStringLiteral("Europe/Berlin") },
        { QStringLiteral("brussels, copenhagen, madrid, paris"), QStringLiteral("Europe/Paris") },
        { QStringLiteral("belgrade, bratislava, budapest, ljubljana, prague"), QStringLiteral("Europe/Budapest") },
        { QStringLiteral("sarajevo, skopje, warsaw, zagreb"), QStringLiteral("Europe/Warsaw") },
        { QStringLiteral("dublin, edinburgh, lisbon, london"), QStringLiteral("Europe/London") },
        { QStringLiteral("osaka, sapporo, tokyo"), QStringLiteral("Asia/Tokyo") },
        { QStringLiteral("chennai, kolkata, mumbai, new delhi"), QStringLiteral("Asia/Kolkata") },
        { QStringLiteral("canberra, melbourne, sydney"), QStringLiteral("Australia/Sydney") },
    };
    return names;
}

std::optional<TimeZone> zoneOfName(const QString &name)
{
    if (const auto exact = TimeZone::named(name))
        return exact;
    const QString key = name.toLower();
    if (const QString alias = aliases().value(key); !alias.isEmpty())
        return TimeZone::named(alias);
    if (const QString known = databaseNames().value(QString(key).replace(u' ', u'_')); !known.isEmpty())
        return TimeZone::named(known);
    const QByteArray iana = QTimeZone::windowsIdToDefaultIanaId(name.toLatin1());
    return iana.isEmpty() ? std::nullopt : TimeZone::named(QString::fromLatin1(iana));
}

/// What stands behind "(UTC+01:00) " and the like in the names that people see in Windows.
QString withoutOffset(const QString &name)
{
    const qsizetype close = name.indexOf(u')');
    const bool prefixed = name.startsWith(u"(UTC") || name.startsWith(u"(GMT");
    return prefixed && close > 0 ? name.mid(close + 1).trimmed() : name;
}

std::optional<TimeZone> search(const QString &tzid)
{
    QString name = withoutOffset(tzid.trimmed());
    if (const auto whole = zoneOfName(name))
        return whole;
    // America/Argentina/Buenos_Aires has three parts: the longest ending that is a name.
    for (qsizetype slash = name.indexOf(u'/'); slash >= 0; slash = name.indexOf(u'/', slash + 1)) {
        if (const auto zone = zoneOfName(name.mid(slash + 1)))
            return zone;
    }
    return std::nullopt;
}

} // namespace

std::optional<TimeZone> resolveZone(const QString &tzid)
{
    static QMutex mutex;
    static std::map<QString, std::optional<TimeZone>> known;

    const QMutexLocker lock(&mutex);
    if (const auto found = known.find(tzid); found != known.end())
        return found->second;
    // Files may bring any number of names; those that say nothing are not worth remembering for ever.
    if (known.size() > 2'000)
        known.clear();
    return known[tzid] = search(tzid);
}

std::optional<TimeZone> zoneOfOffset(const QString &tzid)
{
    QString offset = tzid.simplified().remove(u' ');
    if (offset.startsWith(u"GMT") || offset.startsWith(u"UTC"))
        offset.remove(0, 3);
    const bool isSigned = offset.startsWith(u'+') || offset.startsWith(u'-');
    const auto seconds = isSigned ? parseUtcOffset(offset.toLatin1()) : std::nullopt;
    return seconds ? std::optional(TimeZone::custom(tzid, *seconds, {})) : std::nullopt;
}

} // namespace mintaro
