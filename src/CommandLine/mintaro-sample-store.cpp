#include "Platform/EventKit/Folders/SampleStore.h"
#include "Platform/EventKit/StoreBackend.h"
#include "Platform/Foundation/Clock.h"
#include "Platform/Foundation/ISO8601.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>

namespace mintaro {

namespace {

struct Arguments
{
    QString target;
    QString now;
    QString timeZone;
};

Arguments parse(const QCoreApplication &application)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Writes calendars to look at: roots and a configuration below DIR."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("DIR"), QStringLiteral("A folder that is new or empty."));
    const QCommandLineOption now(QStringLiteral("now"),
        QStringLiteral("The moment that the calendars are made for (ISO 8601)."), QStringLiteral("ISO"));
    const QCommandLineOption zone(
        QStringLiteral("time-zone"), QStringLiteral("The zone of the events (IANA name)."), QStringLiteral("ZONE"));
    parser.addOptions({ now, zone });
    parser.process(application);
    if (parser.positionalArguments().size() != 1)
        parser.showHelp(2);
    return { parser.positionalArguments().constFirst(), parser.value(now), parser.value(zone) };
}

TimeZone timeZoneOf(const QString &name)
{
    if (name.isEmpty())
        return TimeZone::system();
    const std::optional<TimeZone> zone = TimeZone::named(name);
    if (!zone)
        throw EKError(QStringLiteral("\"%1\" is no time zone").arg(name).toStdString());
    return *zone;
}

/// A moment without an offset is a clock reading in the zone.
Date momentOf(const QString &text, const TimeZone &zone)
{
    if (text.isEmpty())
        return SystemClock().now();
    const std::optional<Date> moment = dateFromIso8601(text, zone);
    if (!moment)
        throw EKError(QStringLiteral("\"%1\" is no ISO 8601 moment").arg(text).toStdString());
    return *moment;
}

int writeSampleStore(const Arguments &arguments)
{
    try {
        const TimeZone zone = timeZoneOf(arguments.timeZone);
        SampleStore::write(
            SampleStore::templateFolder(), arguments.target, momentOf(arguments.now, zone), Calendar(Locale {}, zone));
    } catch (const EKError &error) {
        std::fprintf(stderr, "mintaro-sample-store: %s\n", error.what());
        return 1;
    }
    return 0;
}

} // namespace

} // namespace mintaro

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    return mintaro::writeSampleStore(mintaro::parse(application));
}
