#include "CommandLine/ParseCommand.h"

#include "CommandLine/JsonLines.h"
#include "CommandLine/WhenText.h"
#include "Platform/Foundation/ISO8601.h"
#include "Services/NaturalLanguageParser.h"

#include <QDateTime>

#include <map>

namespace mintaro {

namespace {

/// A place, a language and a moment in which sentences are read.
struct Reader
{
    Reader(Date now, const Locale &locale, const TimeZone &timeZone)
        : clock(now)
        , environment(clock, locale, timeZone)
        , parser(environment)
        , detector(locale)
    {
    }

    FixedClock clock;
    Environment environment;
    NaturalLanguageParser parser;
    DateDetector detector;
};

/// Readers for whatever the lines ask for, each made once.
class Readers
{
public:
    explicit Readers(const Environment &usual)
        : m_usual(usual)
    {
    }

    Reader &forQuestion(const QJsonObject &question)
    {
        const QString ref = question.value(QLatin1String("ref")).toString();
        const QString zone = question.value(QLatin1String("tz")).toString();
        const QString locale = question.value(QLatin1String("locale")).toString();
        auto &reader = m_readers[ref + u'\n' + zone + u'\n' + locale];
        if (!reader)
            reader = make(ref, zone, locale);
        return *reader;
    }

private:
    [[nodiscard]] std::unique_ptr<Reader> make(const QString &ref, const QString &zone, const QString &locale) const
    {
        const auto timeZone = zone.isEmpty() ? m_usual.timeZone() : TimeZone::named(zone);
        if (!timeZone)
            throw CommandError(QStringLiteral("tz: no such time zone: %1").arg(zone));
        const auto now = ref.isEmpty() ? m_usual.now() : dateFromIso8601(ref, *timeZone);
        if (!now)
            throw CommandError(QStringLiteral("ref: no moment of ISO 8601: %1").arg(ref));
        return std::make_unique<Reader>(
            *now, locale.isEmpty() ? m_usual.locale() : Locale::fromIdentifier(locale), *timeZone);
    }

    const Environment &m_usual;
    std::map<QString, std::unique_ptr<Reader>> m_readers;
};

/// A reading of the zone's clocks, without an offset.
QJsonValue localIso(const std::optional<Date> &date, const TimeZone &timeZone)
{
    if (!date)
        return QJsonValue::Null;
    const DateComponents parts = componentsOf(timeZone.toLocal(std::chrono::floor<std::chrono::seconds>(*date)));
    return QStringLiteral("%1-%2-%3T%4:%5:%6")
        .arg(parts.year, 4, 10, QLatin1Char('0'))
        .arg(parts.month, 2, 10, QLatin1Char('0'))
        .arg(parts.day, 2, 10, QLatin1Char('0'))
        .arg(parts.hour, 2, 10, QLatin1Char('0'))
        .arg(parts.minute, 2, 10, QLatin1Char('0'))
        .arg(parts.second, 2, 10, QLatin1Char('0'));
}

QJsonObject toJson(const QString &text, const ParsedEvent &event, const Reader &reader)
{
    const TimeZone zone = reader.environment.timeZone();
    const auto match = reader.detector.firstMatch(text, reader.environment.now(), reader.environment.calendar());
    return { { QStringLiteral("start"), localIso(event.startDate, zone) },
        { QStringLiteral("end"), localIso(event.endDate, zone) },
        { QStringLiteral("match"), match ? QJsonValue(text.sliced(match->location, match->length)) : QJsonValue::Null },
        { QStringLiteral("index"), match ? QJsonValue(static_cast<qint64>(match->location)) : QJsonValue::Null },
        { QStringLiteral("title"), event.title },
        { QStringLiteral("location"), event.location ? QJsonValue(*event.location) : QJsonValue::Null } };
}

void answerLines(const QCommandLineParser &arguments, const Environment &environment)
{
    Readers readers(environment);
    JsonLines lines;
    while (const auto question = lines.next()) {
        const QString text = question->value(QLatin1String("text")).toString();
        const Reader &reader = readers.forQuestion(*question);
        const auto event = lines.measured([&] { return reader.parser.parse(text); });
        lines.answer(*question, toJson(text, event.value_or(ParsedEvent { .title = text }), reader));
    }
    lines.finish(arguments);
}

} // namespace

QString ParseCommand::summary() const
{
    return QStringLiteral("what a sentence says: title, time and place");
}

QString ParseCommand::details() const
{
    return QStringLiteral("Shows the event that the sentence would make; nothing is saved.\n\n"
                          "  mintaroctl parse \"Lunch with Anna tomorrow at noon at Roma\"\n"
                          "  mintaroctl parse \"cena con Paolo venerdi alle 20 a Trastevere\"\n\n"
                          "With --json-lines each line of standard input is a JSON object with id, text\n"
                          "and, where they differ from the user's, ref (the present moment), tz and locale.");
}

void ParseCommand::addOptions(QCommandLineParser &parser) const
{
    parser.addPositionalArgument(QStringLiteral("sentence"), QStringLiteral("What would be typed for a new event."),
        QStringLiteral("[sentence]"));
    parser.addOption({ QStringLiteral("json"), QStringLiteral("The answer as a JSON object.") });
    JsonLines::addOptions(parser);
}

int ParseCommand::run(const QCommandLineParser &arguments)
{
    AppContext context(ContextOptions::from(arguments));
    const Environment &environment = context.environment();
    if (arguments.isSet(QStringLiteral("json-lines"))) {
        answerLines(arguments, environment);
        return 0;
    }
    const QString text = arguments.positionalArguments().mid(1).join(u' ');
    const Reader reader(environment.now(), environment.locale(), environment.timeZone());
    const auto event = reader.parser.parse(text);
    if (!event)
        throw CommandError(QStringLiteral("parse: what shall be read? See parse --help"));
    if (arguments.isSet(QStringLiteral("json"))) {
        printJson(toJson(text, *event, reader));
        return 0;
    }
    printLine(event->title);
    if (event->startDate)
        printLine(WhenText(environment).range(*event->startDate, *event->endDate, event->isAllDay));
    if (event->location)
        printLine(*event->location);
    return 0;
}

} // namespace mintaro
