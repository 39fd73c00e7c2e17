#include "Views/Main/MenuBarLabel.h"

#include <QCoreApplication>
#include <QSet>
#include <QTextBoundaryFinder>

namespace mintaro {

namespace {

constexpr std::chrono::seconds kTickInterval { 30 };
/// What shows at once; the longest title and the format of the countdown wait for the next tick.
const QSet<QString> kObservedPreferences { QStringLiteral("MenuBarDateFormat"), QStringLiteral("ShowDateInMenuBar"),
    QStringLiteral("ShowNextEventInMenuBar"), QStringLiteral("ShowMeetingIconInMenuBar") };

} // namespace

MenuBarLabel::MenuBarLabel(AppState &appState)
    : m_appState(appState)
    , m_now(appState.environment().now())
    , m_dateFormat(DateFormatter::withPattern(appState.menuBarDateFormat(), appState.environment().locale()))
{
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setInterval(kTickInterval);
    connect(&m_timer, &QTimer::timeout, this, &MenuBarLabel::tick);
    connect(&m_appState, &AppState::significantTimeChange, this, &MenuBarLabel::tick);
    connect(&m_appState, &AppState::nextEventChanged, this, &MenuBarLabel::update);
    connect(&m_appState, &AppState::countdownTextChanged, this, &MenuBarLabel::update);
    connect(&m_appState.defaults(), &UserDefaults::changed, this, [this](const QString &key) {
        if (key == QLatin1String("MenuBarDateFormat"))
            useDateFormat();
        if (kObservedPreferences.contains(key))
            update();
    });
    update();
}

void MenuBarLabel::appear()
{
    m_appState.requestAccessAndLoad();
    m_appState.watchStoreChanges();
    m_timer.start();
}

void MenuBarLabel::tick()
{
    m_now = m_appState.environment().now();
    m_appState.updateCountdown();
    update();
}

void MenuBarLabel::useDateFormat()
{
    m_dateFormat = DateFormatter::withPattern(m_appState.menuBarDateFormat(), m_appState.environment().locale());
}

void MenuBarLabel::update()
{
    const Environment &environment = m_appState.environment();
    Items items;
    items.day = QString::number(environment.calendar().components(m_now).day);
    if (m_appState.showDateInMenuBar())
        items.formattedDate = m_dateFormat.string(m_now, environment.timeZone());
    if (const auto &next = m_appState.nextEvent(); next && m_appState.showNextEventInMenuBar()) {
        items.title = shortened(next->title);
        items.countdown = m_appState.countdownText();
        if (next->meetingInfo && m_appState.showMeetingIconInMenuBar())
            items.meetingSymbol = next->meetingInfo->systemImage;
    }
    if (std::exchange(m_items, items) != items)
        Q_EMIT changed();
}

QString MenuBarLabel::shortened(const QString &title) const
{
    const int limit = m_appState.menuBarMaxTitleLength();
    QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, title);
    qsizetype keptEnd = 0;
    for (int count = 0; count < limit; ++count) {
        if (count == limit - 1)
            keptEnd = characters.position();
        if (characters.toNextBoundary() < 0)
            return title;
    }
    return characters.position() >= title.size() ? title : title.left(keptEnd) + QChar(0x2026);
}

QString MenuBarLabel::text() const
{
    QStringList parts;
    if (!m_items.formattedDate.isEmpty())
        parts.append(m_items.formattedDate);
    if (showsNextEvent()) {
        if (!parts.isEmpty())
            parts.append(QString(QChar(0x00b7)));
        parts.append(m_items.title);
        if (!m_items.countdown.isEmpty())
            parts.append(m_items.countdown);
    }
    return parts.join(u' ');
}

QString MenuBarLabel::toolTip() const
{
    const auto &next = m_appState.nextEvent();
    if (!next)
        return qtTrId("No upcoming events");
    return next->title + QLatin1Char('\n') + next->timeRange(m_appState.environment().timeZone());
}

} // namespace mintaro
