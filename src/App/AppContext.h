#pragma once

#include "App/AppState.h"
#include "Platform/Foundation/Clock.h"
#include "Platform/Foundation/Environment.h"
#include "Platform/Foundation/NotificationCenter.h"
#include "Platform/Foundation/SystemTimeMonitor.h"
#include "Platform/Foundation/UserDefaults.h"

#include <QTranslator>

class QCommandLineParser;

namespace mintaro {

/// What a user may overrule for one run, by options that every program of ours takes.
struct ContextOptions
{
    /// A root folder of calendars, in place of the configured ones.
    std::optional<QString> store;
    /// Where the clock stands still.
    std::optional<Date> now;
    /// What the clock shows at the start; it goes on from there.
    std::optional<Date> startAt;
    std::optional<TimeZone> timeZone;
    std::optional<Locale> locale;
    /// A file of preferences, in place of the user's; no option sets it.
    std::optional<QString> preferences;

    /// Adds --store, --now, --start-at, --time-zone and --locale.
    static void addTo(QCommandLineParser &parser);
    /// Throws std::runtime_error with a text for people where a value makes no sense.
    [[nodiscard]] static ContextOptions from(const QCommandLineParser &parser);
};

/// All that stands under AppState, in the order in which it is built: an entry makes one and keeps it as long as the
/// process. Needs a QCoreApplication.
class AppContext
{
public:
    explicit AppContext(const ContextOptions &options);
    ~AppContext();

    /// For a program that stays: from now on changes of the preferences and of the calendars are followed, and the
    /// environment tells of midnights, wakes and changes of zone, unless the clock or the zone was given by option. To
    /// be called before anything is asked for.
    void follow();

    [[nodiscard]] Environment &environment() { return m_environment; }
    [[nodiscard]] UserDefaults &defaults() { return m_defaults; }
    [[nodiscard]] const std::shared_ptr<CalendarDatabase> &database() const { return m_database; }
    /// The folder of store.conf, which names the calendars that the program may see.
    [[nodiscard]] static QString calendarConfigurationFolder();
    /// Both must outlive the result, which names nothing that a program without windows does not have.
    [[nodiscard]] AppState::Dependencies dependencies(Workspace &workspace);

private:
    const bool m_hasSystemTime;
    std::unique_ptr<const Clock> m_clock;
    UserDefaults m_defaults;
    Environment m_environment;
    std::unique_ptr<QTranslator> m_texts;
    NotificationCenter m_notifications;
    /// Of the journal: a moment given by option must not age what was kept.
    SystemClock m_systemClock;
    std::shared_ptr<CalendarDatabase> m_database;
    std::optional<SystemTimeMonitor> m_timeMonitor;
};

} // namespace mintaro
