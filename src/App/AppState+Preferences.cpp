#include "App/AppState.h"

namespace mintaro {

namespace {

constexpr int kDefaultNotificationMinutes = 5;
constexpr int kDefaultMaxTitleLength = 20;
constexpr int kMonday = 2;
/// Longer than any date; a pattern is typed, or pasted by mistake.
constexpr qsizetype kLongestDateFormat = 100;

/// Text that a panel can show in its one line.
QString asOneLine(QString text, qsizetype limit)
{
    text.truncate(limit);
    if (!text.isEmpty() && text.back().isHighSurrogate())
        text.chop(1);
    for (QChar &c : text) {
        if (c.category() == QChar::Other_Control || c == QChar::LineSeparator || c == QChar::ParagraphSeparator)
            c = u' ';
    }
    return text;
}

int positive(int stored, int fallback)
{
    return stored > 0 ? stored : fallback;
}

} // namespace

bool AppState::weekStartsOnMonday() const
{
    return m_defaults.boolForKey(QStringLiteral("WeekStartsOnMonday"))
        .value_or(m_environment.calendar().firstWeekday() == kMonday);
}

bool AppState::showWeekNumbers() const
{
    return m_defaults.boolForKey(QStringLiteral("ShowWeekNumbers")).value_or(false);
}

bool AppState::showDateInMenuBar() const
{
    return m_defaults.boolForKey(QStringLiteral("ShowDateInMenuBar")).value_or(true);
}

QString AppState::menuBarDateFormat() const
{
    const auto stored = m_defaults.stringForKey(QStringLiteral("MenuBarDateFormat"));
    return asOneLine(stored.value_or(QStringLiteral("d MMM")), kLongestDateFormat);
}

bool AppState::showNextEventInMenuBar() const
{
    return m_defaults.boolForKey(QStringLiteral("ShowNextEventInMenuBar")).value_or(true);
}

bool AppState::showMeetingIconInMenuBar() const
{
    return m_defaults.boolForKey(QStringLiteral("ShowMeetingIconInMenuBar")).value_or(true);
}

void AppState::setShowMeetingIconInMenuBar(bool shows)
{
    m_defaults.setBool(shows, QStringLiteral("ShowMeetingIconInMenuBar"));
}

bool AppState::meetingNotificationsEnabled() const
{
    return m_defaults.boolForKey(QStringLiteral("MeetingNotificationsEnabled")).value_or(true);
}

void AppState::setMeetingNotificationsEnabled(bool isEnabled)
{
    m_defaults.setBool(isEnabled, QStringLiteral("MeetingNotificationsEnabled"));
}

int AppState::meetingNotificationMinutes() const
{
    return positive(
        m_defaults.integerForKey(QStringLiteral("MeetingNotificationMinutes")), kDefaultNotificationMinutes);
}

void AppState::setMeetingNotificationMinutes(int minutes)
{
    m_defaults.setInteger(minutes, QStringLiteral("MeetingNotificationMinutes"));
}

int AppState::menuBarMaxTitleLength() const
{
    return positive(m_defaults.integerForKey(QStringLiteral("MenuBarMaxTitleLength")), kDefaultMaxTitleLength);
}

void AppState::setMenuBarMaxTitleLength(int length)
{
    m_defaults.setInteger(length, QStringLiteral("MenuBarMaxTitleLength"));
}

CountdownFormat AppState::countdownFormat() const
{
    const QString text = m_defaults.stringForKey(QStringLiteral("CountdownFormat")).value_or(QString());
    return countdownFormatFromRawValue(text).value_or(CountdownFormat::Relative);
}

void AppState::setCountdownFormat(CountdownFormat format)
{
    m_defaults.setString(rawValue(format), QStringLiteral("CountdownFormat"));
}

QString AppState::appLanguage() const
{
    return m_defaults.stringForKey(QStringLiteral("AppLanguage")).value_or(QStringLiteral("system"));
}

void AppState::setAppLanguage(const QString &language)
{
    m_defaults.setString(language, QStringLiteral("AppLanguage"));
    if (language == QLatin1String("system"))
        m_defaults.removeObjectForKey(QStringLiteral("AppleLanguages"));
    else
        m_defaults.setStringArray({ language }, QStringLiteral("AppleLanguages"));
}

} // namespace mintaro
