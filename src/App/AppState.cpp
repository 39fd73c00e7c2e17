#include "App/AppState.h"

#include "Extensions/DateHelpers.h"
#include "Platform/EventKit/StoreBackend.h"

#include <QPointer>

namespace mintaro {

namespace {

constexpr int kDaysAroundMonth = 7;
constexpr int kDaysForLabel = 7;

} // namespace

AppState::AppState(const Dependencies &dependencies)
    : m_environment(dependencies.environment)
    , m_defaults(dependencies.defaults)
    , m_workspace(dependencies.workspace)
    , m_eventEditor(dependencies.eventEditor)
    , m_settings(dependencies.settings)
    , m_pasteboard(dependencies.pasteboard)
    , m_calendarApplication(dependencies.calendarApplication)
    , m_selectedDate(m_environment.now())
    , m_monthDate(m_environment.now())
    , m_today(m_environment.now())
    , m_logger(QStringLiteral("AppState"), dependencies.log)
    , m_meetingOpener(dependencies.workspace)
    , m_eventStore(
          EKEventStore(dependencies.database), MeetingURLDetector(), dependencies.notifications, dependencies.log)
    , m_reminderService(EKEventStore(dependencies.database), m_environment.clock(), dependencies.log)
    , m_calendarVM(m_environment)
    , m_eventsVM(m_eventStore, m_environment)
    , m_upcomingVM(m_eventStore, m_environment)
    , m_remindersVM(m_reminderService, m_environment)
    , m_searchVM(m_eventStore, m_environment)
{
    connect(&m_environment, &Environment::significantTimeChange, this, [this] {
        if (!m_isPopoverVisible)
            followTodayAndRefresh();
        Q_EMIT significantTimeChange();
    });
    connect(&m_defaults, &UserDefaults::changed, this, &AppState::onPreferenceChanged);
    if (auto *center = dependencies.userNotifications) {
        m_notificationService.emplace(*center, m_environment, dependencies.log);
        // The next reminder of a series waits for that. Later, since it may be scheduling that delivers what is due.
        connect(
            center, &UNUserNotificationCenter::delivered, this, &AppState::scheduleNotifications, Qt::QueuedConnection);
    }
}

AppState::~AppState() = default;

void AppState::setSelectedDate(Date date)
{
    if (std::exchange(m_selectedDate, date) != date)
        Q_EMIT selectedDateChanged();
}

void AppState::setMonthDate(Date date)
{
    if (std::exchange(m_monthDate, date) == date)
        return;
    Q_EMIT monthDateChanged();
    if (m_isPopoverVisible)
        refreshAll();
}

QSet<QString> AppState::selection(const QString &key) const
{
    const QStringList identifiers = m_defaults.stringArrayForKey(key);
    return QSet<QString>(identifiers.begin(), identifiers.end());
}

QCoro::Task<> AppState::requestAccessAndLoad()
{
    const QPointer<AppState> self(this);
    const bool hadReminderAccess = m_hasReminderAccess;
    co_await loadEventsOnceGranted();
    if (!self)
        co_return;
    co_await askForReminders();
    if (!self)
        co_return;
    // A refresh that ran before access was given found none.
    const bool areFetched = hadReminderAccess && m_hasCalendarAccess;
    if (m_hasReminderAccess && !areFetched)
        co_await fetchReminders();
}

QCoro::Task<> AppState::loadEventsOnceGranted()
{
    const QPointer<AppState> self(this);
    QString failure;
    try {
        const bool granted = co_await m_eventStore.requestAccess();
        if (!self)
            co_return;
        if (std::exchange(m_hasCalendarAccess, granted) != granted)
            Q_EMIT hasCalendarAccessChanged();
    } catch (const EKError &error) {
        if (!self)
            co_return;
        failure = QString::fromUtf8(error.what());
        m_logger.error(QStringLiteral("Failed to request calendar access: %1").arg(failure));
    }
    if (std::exchange(m_accessFailure, failure) != failure)
        Q_EMIT accessFailureChanged();
    if (!m_hasCalendarAccess)
        co_return;
    if (m_notificationService) {
        m_notificationService->registerCategories();
        co_await m_notificationService->requestPermission();
        if (!self)
            co_return;
    }
    co_await refreshAll();
}

QCoro::Task<> AppState::askForReminders()
{
    const QPointer<AppState> self(this);
    try {
        const bool granted = co_await m_reminderService.requestAccess();
        if (self)
            m_hasReminderAccess = granted;
    } catch (const EKError &error) {
        if (!self)
            co_return;
        m_hasReminderAccess = false;
        m_logger.error(QStringLiteral("Failed to request reminders access: %1").arg(QString::fromUtf8(error.what())));
    }
}

QCoro::Task<> AppState::refreshAll()
{
    const QPointer<AppState> self(this);
    const Calendar calendar = m_environment.calendar();
    const auto shifted = [&](Date date, int days) {
        return calendar.dateByAdding(Calendar::Component::Day, days, date).value_or(date);
    };
    ++m_refreshes;
    const Date start = shifted(startOfMonth(m_monthDate, calendar), -kDaysAroundMonth);
    const Date end = shifted(endOfMonth(m_monthDate, calendar), kDaysAroundMonth);

    co_await m_eventsVM.fetchEvents(start, end, selection(QStringLiteral("SelectedCalendars")), HidePastEvents::No);
    if (!self)
        co_return;
    generateMonth();
    co_await fetchReminders();
    if (!self)
        co_return;
    co_await fetchUpcoming(start, end);
    if (!self)
        co_return;
    if (m_isShowingSearch && m_isPopoverVisible)
        m_searchVM.searchAgain();
    --m_refreshes;
    updateNextEvent();
}

QCoro::Task<> AppState::fetchUpcoming(Date fetchedFrom, Date fetchedTo)
{
    const Date now = m_environment.now();
    const Date end = m_environment.calendar().dateByAdding(Calendar::Component::Day, kDaysForLabel, now).value_or(now);
    if (fetchedFrom <= now && end <= fetchedTo) {
        m_upcomingVM.clear();
        co_return;
    }
    co_await m_upcomingVM.fetchEvents(now, end, selection(QStringLiteral("SelectedCalendars")), HidePastEvents::No);
}

QCoro::Task<> AppState::watchStoreChanges()
{
    if (std::exchange(m_isWatchingStoreChanges, true))
        co_return;
    const QPointer<AppState> self(this);
    auto changes = m_eventStore.storeChanges();
    // The stream ends while this object goes, so nothing of it may be touched after an absent element.
    while (const auto change = co_await changes.next()) {
        m_logger.debug(QStringLiteral("EventKit store changed, refreshing..."));
        co_await refreshAll();
        if (!self)
            co_return;
        Q_EMIT storeChanged();
    }
}

void AppState::navigateMonth(int delta)
{
    const auto month = m_environment.calendar().dateByAdding(Calendar::Component::Month, delta, m_monthDate);
    if (!month || *month == m_monthDate)
        return;
    setMonthDate(*month);
    Q_EMIT monthNavigated(delta);
}

void AppState::selectDay(Date date)
{
    setSelectedDate(date);
    generateMonth();
}

void AppState::showToday()
{
    setMonthDate(m_environment.now());
    selectDay(m_environment.now());
}

void AppState::generateMonth()
{
    m_calendarVM.generateMonth(m_monthDate, m_selectedDate, m_eventsVM.eventColorsByDay(),
        weekStartsOnMonday() ? WeekStart::Monday : WeekStart::Sunday);
}

void AppState::setPopoverVisible(bool isVisible)
{
    if (isVisible) {
        // Whoever opens it fetches everything anyway.
        followToday();
        m_isPopoverVisible = true;
        return;
    }
    m_isPopoverVisible = false;
    dismissQuestions();
    followTodayAndRefresh();
}

void AppState::dismissQuestions()
{
    setShowingDeleteConfirmation(false);
    setShowingSpanPicker(false);
    setPendingDeleteEvent(std::nullopt);
    setErrorMessage({});
}

bool AppState::followToday()
{
    const Calendar calendar = m_environment.calendar();
    const Date now = m_environment.now();
    const Date before = std::exchange(m_today, now);
    if (calendar.isDateInSameDay(before, now))
        return false;
    if (calendar.isDateInSameDay(m_selectedDate, before))
        setSelectedDate(now);
    if (startOfMonth(m_monthDate, calendar) == startOfMonth(before, calendar))
        setMonthDate(now);
    return true;
}

void AppState::followTodayAndRefresh()
{
    // A refresh that is under way may have begun with the old month.
    if (followToday() && m_hasCalendarAccess)
        refreshAll();
}

void AppState::onPreferenceChanged(const QString &key)
{
    // All others are read when they are needed: the calendars at the next refresh, the format of the countdown at the
    // next tick.
    if (key == QLatin1String("SelectedReminderLists"))
        fetchReminders();
    else if (m_hasCalendarAccess && key == QLatin1String("WeekStartsOnMonday"))
        refreshAll();
    else if (key == QLatin1String("MeetingNotificationsEnabled") || key == QLatin1String("MeetingNotificationMinutes"))
        scheduleNotifications();
}

void AppState::openMeeting(const MeetingInfo &meeting)
{
    QCoro::connect(m_meetingOpener.open(meeting), this, [] {});
}

void AppState::openPrivacySettings()
{
    static const QString url
        = QStringLiteral("x-apple.systempreferences:com.apple.preference.security?Privacy_Calendars");
    if (const auto privacy = URL::fromString(url))
        openURL(*privacy);
}

void AppState::openURL(const URL &url)
{
    m_workspace.open(url);
}

void AppState::openSettings()
{
    if (m_settings)
        m_settings->openSettings();
}

} // namespace mintaro
