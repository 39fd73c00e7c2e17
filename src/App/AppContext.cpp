#include "App/AppContext.h"

#include "Platform/EventKit/CalendarDatabase.h"
#include "Platform/EventKit/Folders/FoldersBackend.h"
#include "Platform/Foundation/ISO8601.h"
#include "Platform/Foundation/Translations.h"

#include <QCommandLineParser>
#include <QFileInfo>

#include <stdexcept>

namespace mintaro {

namespace {

std::unique_ptr<const Clock> makeClock(const ContextOptions &options)
{
    if (options.now)
        return std::make_unique<FixedClock>(*options.now);
    if (options.startAt)
        return std::make_unique<OffsetClock>(*options.startAt);
    return std::make_unique<SystemClock>();
}

template <typename T>
T required(const std::optional<T> &value, const char *option, const QString &text)
{
    if (!value)
        throw std::runtime_error(std::string("--") + option + ": cannot make sense of \"" + text.toStdString() + '"');
    return *value;
}

} // namespace

void ContextOptions::addTo(QCommandLineParser &parser)
{
    parser.addOptions({
        { QStringLiteral("store"), QStringLiteral("Use the calendars in this root folder."), QStringLiteral("folder") },
        { QStringLiteral("now"), QStringLiteral("Let the clock stand still at this moment (ISO 8601)."),
            QStringLiteral("moment") },
        { QStringLiteral("start-at"), QStringLiteral("Let the clock begin at this moment (ISO 8601) and go on."),
            QStringLiteral("moment") },
        { QStringLiteral("time-zone"), QStringLiteral("Use this time zone (an IANA name)."), QStringLiteral("name") },
        { QStringLiteral("locale"), QStringLiteral("Use this language and region, as in it_IT."),
            QStringLiteral("name") },
    });
}

ContextOptions ContextOptions::from(const QCommandLineParser &parser)
{
    const auto value = [&](const char *option) {
        const QString name = QLatin1String(option);
        return parser.isSet(name) ? std::optional(parser.value(name)) : std::nullopt;
    };
    ContextOptions options;
    options.store = value("store");
    if (const auto name = value("time-zone"))
        options.timeZone = required(TimeZone::named(*name), "time-zone", *name);
    if (const auto name = value("locale"))
        options.locale = Locale::fromIdentifier(*name);
    const auto moment = [&](const char *option) -> std::optional<Date> {
        const auto text = value(option);
        if (!text)
            return std::nullopt;
        return required(
            dateFromIso8601(*text, options.timeZone ? *options.timeZone : TimeZone::system()), option, *text);
    };
    options.now = moment("now");
    options.startAt = moment("start-at");
    if (options.now && options.startAt)
        throw std::runtime_error("--now and --start-at: the clock cannot both stand still and go on");
    return options;
}

AppContext::AppContext(const ContextOptions &options)
    : m_hasSystemTime(!options.now && !options.timeZone)
    , m_clock(makeClock(options))
    , m_defaults(options.preferences.value_or(UserDefaults::standardFile()))
    , m_environment(*m_clock,
          options.locale.value_or(Locale::current(m_defaults.stringArrayForKey(QStringLiteral("AppleLanguages")))),
          options.timeZone ? *options.timeZone : TimeZone::system())
    , m_texts(installTranslations(m_environment.locale()))
    , m_database(std::make_shared<CalendarDatabase>(
          std::make_unique<FoldersBackend>(BaseFolders::fromEnvironment(), options.store),
          std::make_unique<CalendarIndex>(BaseFolders::fromEnvironment().cacheHome + QLatin1String("/mintaro")),
          m_environment, m_notifications, Logger(QStringLiteral("EventStore")),
          std::make_unique<ChangeJournal>(
              BaseFolders::fromEnvironment().stateHome + QLatin1String("/mintaro/journal"), m_systemClock)))
{
}

AppContext::~AppContext() = default;

void AppContext::follow()
{
    m_defaults.follow();
    m_database->follow();
    if (m_hasSystemTime && !m_timeMonitor)
        m_timeMonitor.emplace(m_environment);
}

QString AppContext::calendarConfigurationFolder()
{
    return QFileInfo(StoreConfiguration::filePath(BaseFolders::fromEnvironment())).path();
}

AppState::Dependencies AppContext::dependencies(Workspace &workspace)
{
    return { m_database, m_notifications, m_defaults, m_environment, workspace };
}

} // namespace mintaro
