#pragma once

#include "Platform/Foundation/Environment.h"
#include "Platform/Foundation/Logger.h"
#include "Platform/Foundation/URLSession.h"
#include "Platform/Foundation/UserDefaults.h"
#include "Platform/Foundation/WallClockTimer.h"
#include "Platform/Sparkle/SUAppcast.h"

namespace mintaro {

/// What a look for a newer version gave.
struct SPUUpdateCheck
{
    enum class Kind {
        UpToDate,
        Available,
        Unreachable, ///< no answer, or one that is not 200 (RFC 9110, 15.3.1) or longer than 1 MiB
        Malformed, ///< no appcast, or one that has nothing for this system
    };
    Kind kind;
    std::optional<SUAppcastItem> item; ///< the newest version of the feed, where it is Available
    bool isByUser;
};

/// Looks in a feed for a version of the program that is newer than this one: once a day by itself, as long as the
/// preference "SUEnableAutomaticChecks" (absent: true) says so, and whenever the user asks. It only tells; nothing is
/// downloaded or installed. The feed's server learns of the program what URLSession tells. For the main thread.
class SPUUpdater : public QObject
{
    Q_OBJECT

public:
    /// `feed`: the appcast's address; without one, or with one that is not safe by isSafeAddress, there are no checks.
    /// `hostVersion`: the running program's. All references must outlive the object.
    SPUUpdater(URLSession &session, UserDefaults &defaults, Environment &environment, const QString &feed,
        QString hostVersion, LogSink log = writeToSystemLog);

    /// Begins the daily checks, the first of them a minute from now at the soonest. The time of the last one stands in
    /// the preference "SULastCheckTime" (ISO 8601); after a failure the next try comes an hour later.
    void startUpdater();

    /// False without a usable feed, and while a check is under way.
    [[nodiscard]] bool canCheckForUpdates() const;
    [[nodiscard]] bool isChecking() const { return m_isChecking; }
    /// By the user's wish. Does nothing where it cannot check.
    void checkForUpdates();

Q_SIGNALS:
    void canCheckForUpdatesChanged();
    /// Each check of the user's tells how it ended. One of the daily ones tells only of a version that nobody was told
    /// of before (preference "SUNotifiedVersion").
    void finished(const mintaro::SPUUpdateCheck &check);

private:
    void scheduleNextCheck();
    [[nodiscard]] std::optional<Date> lastCheckTime() const;
    QCoro::Task<> check(bool isByUser);
    void finish(const SPUUpdateCheck &check);

    URLSession &m_session;
    UserDefaults &m_defaults;
    const Environment &m_environment;
    const URL m_feed;
    const QString m_hostVersion;
    Logger m_logger;
    WallClockTimer m_timer;
    /// No daily check comes before; absent until they are begun.
    std::optional<Date> m_earliest;
    bool m_isChecking = false;
};

} // namespace mintaro
