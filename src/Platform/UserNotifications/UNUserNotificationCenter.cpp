#include "Platform/UserNotifications/UNUserNotificationCenter.h"

#include <algorithm>
#include <ranges>
#include <stdexcept>

namespace mintaro {

namespace {

/// How long after its first moment a request's minute is over.
constexpr std::chrono::minutes kOnTime { 1 };

} // namespace

UNUserNotificationCenter::UNUserNotificationCenter(
    Environment &environment, NotificationPresenter &presenter, LogSink log)
    : m_environment(environment)
    , m_presenter(presenter)
    , m_logger(QStringLiteral("Notifications"), std::move(log))
    , m_timer(environment.clock())
{
    connect(&m_timer, &WallClockTimer::timeout, this, &UNUserNotificationCenter::advance);
    connect(&environment, &Environment::significantTimeChange, this, &UNUserNotificationCenter::advance);
    connect(&presenter, &NotificationPresenter::activated, this, &UNUserNotificationCenter::onActivated);
    connect(&presenter, &NotificationPresenter::closed, this,
        [this](const QString &identifier) { m_onScreen.erase(identifier); });
}

void UNUserNotificationCenter::setNotificationCategories(std::vector<UNNotificationCategory> categories)
{
    m_categories = std::move(categories);
}

QCoro::Task<bool> UNUserNotificationCenter::requestAuthorization()
{
    m_presenter.requestAuthorization();
    co_return true;
}

void UNUserNotificationCenter::add(const UNNotificationRequest &request)
{
    const auto moment = request.trigger.date();
    if (!moment)
        throw std::invalid_argument("the trigger is no minute of the calendar");
    if (*moment > m_environment.now() && !m_delivered.contains({ request.identifier, *moment }))
        m_pending.insert_or_assign(request.identifier, Scheduled { request, *moment });
    else
        m_pending.erase(request.identifier);
    waitForNext();
}

std::vector<UNNotificationRequest> UNUserNotificationCenter::pendingNotificationRequests()
{
    // Whoever takes them away to schedule them anew must not take one that is due.
    advance();
    std::vector<UNNotificationRequest> requests;
    for (const auto &[identifier, scheduled] : m_pending)
        requests.push_back(scheduled.request);
    return requests;
}

void UNUserNotificationCenter::removePendingNotificationRequests(const QStringList &identifiers)
{
    for (const QString &identifier : identifiers)
        m_pending.erase(identifier);
    waitForNext();
}

std::vector<UNNotificationRequest> UNUserNotificationCenter::deliveredNotifications() const
{
    std::vector<UNNotificationRequest> requests;
    for (const auto &[identifier, request] : m_onScreen)
        requests.push_back(request);
    return requests;
}

void UNUserNotificationCenter::removeDeliveredNotifications(const QStringList &identifiers)
{
    for (const QString &identifier : identifiers) {
        if (m_onScreen.erase(identifier) > 0)
            m_presenter.withdraw(identifier);
    }
}

void UNUserNotificationCenter::advance()
{
    const Date now = m_environment.now();
    std::vector<Scheduled> due;
    for (const auto &[identifier, scheduled] : m_pending) {
        if (scheduled.moment <= now)
            due.push_back(scheduled);
    }
    std::ranges::stable_sort(due, {}, &Scheduled::moment);
    for (const Scheduled &scheduled : due)
        m_pending.erase(scheduled.request.identifier);
    std::ranges::for_each(due, [this](const Scheduled &scheduled) { deliver(scheduled); });
    withdrawExpired();
    waitForNext();
    if (!due.empty())
        Q_EMIT delivered();
}

void UNUserNotificationCenter::deliver(const Scheduled &scheduled)
{
    const auto &[request, moment] = scheduled;
    if (request.occasion.end <= m_environment.now()) {
        m_logger.info(QStringLiteral("A notification came too late and is dropped"));
        return;
    }
    m_delivered.insert_or_assign({ request.identifier, moment }, request.occasion.end);
    using Option = UNNotificationPresentationOption;
    const auto options = m_delegate ? m_delegate->willPresent(request) : Option::Banner | Option::Sound;
    if (options.testFlag(Option::Banner))
        present(scheduled, options);
}

void UNUserNotificationCenter::present(const Scheduled &scheduled, UNNotificationPresentationOptions options)
{
    const auto &[request, moment] = scheduled;
    const bool isLate = m_environment.now() >= moment + kOnTime;
    const UNNotificationContent &content = isLate ? request.lateContent : request.content;
    const auto category
        = std::ranges::find(m_categories, content.categoryIdentifier, &UNNotificationCategory::identifier);
    m_onScreen.insert_or_assign(request.identifier, request);
    m_presenter.present({ .identifier = request.identifier,
        .title = content.title,
        .body = content.body,
        .hasSound = content.hasSound && options.testFlag(UNNotificationPresentationOption::Sound),
        .actions = category == m_categories.end() ? std::vector<UNNotificationAction>() : category->actions });
}

void UNUserNotificationCenter::withdrawExpired()
{
    const Date now = m_environment.now();
    std::erase_if(m_delivered, [now](const auto &each) { return each.second <= now; });
    QStringList expired;
    for (const auto &[identifier, request] : m_onScreen) {
        if (request.occasion.end <= now)
            expired.append(identifier);
    }
    removeDeliveredNotifications(expired);
}

void UNUserNotificationCenter::waitForNext()
{
    std::optional<Date> next;
    const auto consider = [&next](Date moment) { next = std::min(next.value_or(moment), moment); };
    for (const auto &[identifier, scheduled] : m_pending)
        consider(scheduled.moment);
    for (const auto &[identifier, request] : m_onScreen)
        consider(request.occasion.end);
    if (next)
        m_timer.start(*next);
    else
        m_timer.stop();
}

void UNUserNotificationCenter::onActivated(
    const QString &identifier, const QString &actionIdentifier, const QString &activationToken)
{
    const auto found = m_onScreen.find(identifier);
    if (found != m_onScreen.end() && m_delegate)
        QCoro::connect(m_delegate->didReceive({ found->second, actionIdentifier, activationToken }), this, [] {});
}

} // namespace mintaro
