#include "Platform/Sparkle/SPUUpdater.h"

#include "Platform/Foundation/ISO8601.h"
#include "Platform/Sparkle/SUStandardVersionComparator.h"

#include <QDateTime>
#include <QPointer>

#include <algorithm>

namespace mintaro {

using namespace std::chrono_literals;

namespace {

const QString kAutomaticChecks = QStringLiteral("SUEnableAutomaticChecks");
const QString kLastCheckTime = QStringLiteral("SULastCheckTime");
const QString kNotifiedVersion = QStringLiteral("SUNotifiedVersion");

constexpr auto kDay = 24h;
/// A start is not slowed by what can wait.
constexpr auto kAfterLaunch = 1min;
constexpr auto kAfterFailure = 1h;
constexpr qint64 kMostBytes = 1 << 20;
constexpr int kFound = 200; // RFC 9110, 15.3.1

using Kind = SPUUpdateCheck::Kind;

SPUUpdateCheck outcome(const std::optional<URLSession::Response> &response, const QString &hostVersion, bool isByUser)
{
    if (!response || response->statusCode != kFound)
        return { Kind::Unreachable, {}, isByUser };
    auto items = appcastItems(response->data).value_or(std::vector<SUAppcastItem>());
    // Nobody has chosen a channel.
    std::erase_if(items, [](const SUAppcastItem &item) { return !item.channel.isEmpty(); });
    const auto newest = std::max_element(items.begin(), items.end(),
        [](const auto &a, const auto &b) { return compareVersions(a.versionString, b.versionString) < 0; });
    if (newest == items.end())
        return { Kind::Malformed, {}, isByUser };
    if (compareVersions(newest->versionString, hostVersion) <= 0)
        return { Kind::UpToDate, {}, isByUser };
    return { Kind::Available, *newest, isByUser };
}

QString description(const SPUUpdateCheck &check)
{
    switch (check.kind) {
    case Kind::UpToDate:
        return QStringLiteral("No newer version");
    case Kind::Available:
        return QStringLiteral("Version %1 is there").arg(check.item->displayVersionString);
    case Kind::Unreachable:
        return QStringLiteral("The feed cannot be reached");
    case Kind::Malformed:
        return QStringLiteral("The feed makes no sense");
    }
    Q_UNREACHABLE();
}

} // namespace

SPUUpdater::SPUUpdater(URLSession &session, UserDefaults &defaults, Environment &environment, const QString &feed,
    QString hostVersion, LogSink log)
    : m_session(session)
    , m_defaults(defaults)
    , m_environment(environment)
    , m_feed(URL::fromString(feed).value_or(URL()))
    , m_hostVersion(std::move(hostVersion))
    , m_logger(QStringLiteral("Updates"), std::move(log))
    , m_timer(environment.clock())
{
    if (!feed.isEmpty() && !isSafeAddress(m_feed))
        m_logger.error(QStringLiteral("No updates from %1: HTTPS is needed").arg(feed));
    connect(&m_timer, &WallClockTimer::timeout, this, [this] { check(false); });
    connect(&m_timer, &WallClockTimer::clockJumped, this, &SPUUpdater::scheduleNextCheck);
    connect(&defaults, &UserDefaults::changed, this, [this](const QString &key) {
        if (key == kAutomaticChecks)
            scheduleNextCheck();
    });
}

void SPUUpdater::startUpdater()
{
    m_earliest = m_environment.now() + kAfterLaunch;
    scheduleNextCheck();
}

bool SPUUpdater::canCheckForUpdates() const
{
    return !m_isChecking && isSafeAddress(m_feed);
}

void SPUUpdater::checkForUpdates()
{
    if (canCheckForUpdates())
        check(true);
}

void SPUUpdater::scheduleNextCheck()
{
    if (!m_earliest || !canCheckForUpdates() || !m_defaults.boolForKey(kAutomaticChecks).value_or(true)) {
        m_timer.stop();
        return;
    }
    // A clock that is set back must not put a check off for longer.
    m_earliest = std::min(*m_earliest, m_environment.now() + kAfterFailure);
    const auto last = lastCheckTime();
    m_timer.start(last ? std::max(*last + kDay, *m_earliest) : *m_earliest);
}

std::optional<Date> SPUUpdater::lastCheckTime() const
{
    const QString text = m_defaults.stringForKey(kLastCheckTime).value_or(QString());
    const auto time = dateFromIso8601(text, m_environment.timeZone());
    return time && *time <= m_environment.now() ? time : std::nullopt;
}

QCoro::Task<> SPUUpdater::check(bool isByUser)
{
    const QPointer<SPUUpdater> self(this);
    m_timer.stop();
    m_isChecking = true;
    Q_EMIT canCheckForUpdatesChanged();
    const auto response = co_await m_session.data(m_feed, kMostBytes);
    if (self)
        finish(outcome(response, m_hostVersion, isByUser));
}

void SPUUpdater::finish(const SPUUpdateCheck &check)
{
    const Date now = m_environment.now();
    m_logger.info(description(check));
    if (check.kind == Kind::Unreachable || check.kind == Kind::Malformed) {
        m_earliest = m_earliest ? std::optional(now + kAfterFailure) : std::nullopt;
    } else {
        const auto moment = QDateTime::fromMSecsSinceEpoch(now.time_since_epoch().count(), Qt::UTC);
        m_defaults.setString(moment.toString(Qt::ISODate), kLastCheckTime);
    }
    m_isChecking = false;
    scheduleNextCheck();
    Q_EMIT canCheckForUpdatesChanged();
    const bool isNews = check.item && m_defaults.stringForKey(kNotifiedVersion) != check.item->versionString;
    if (isNews)
        m_defaults.setString(check.item->versionString, kNotifiedVersion);
    if (check.isByUser || isNews)
        Q_EMIT finished(check);
}

} // namespace mintaro
