#pragma once

#include "App/AppState.h"
#include "Platform/AppKit/CalendarApplication.h"
#include "Platform/AppKit/Pasteboard.h"
#include "Platform/AppKit/Workspace.h"
#include "Platform/EventKit/CalendarDatabase.h"
#include "support/MemoryBackend.h"
#include "support/Printers.h"

#include <QMutex>
#include <QTemporaryDir>

namespace mintaro {

/// The lines that say when: from a moment to a moment, both in the basic form of iCalendar.
inline QByteArray during(const char *start, const char *end)
{
    return QByteArray("DTSTART:") + start + "\nDTEND:" + end;
}

/// A whole day, in the basic form of iCalendar.
inline QByteArray allDay(const char *day)
{
    return QByteArray("DTSTART;VALUE=DATE:") + day;
}

/// A clock that a test moves.
class FakeClock final : public Clock
{
public:
    Date moment;
    explicit FakeClock(Date date)
        : moment(date)
    {
    }
    [[nodiscard]] Date now() const override { return moment; }
};

/// Keeps what it was asked to open.
class FakeWorkspace final : public Workspace
{
public:
    QStringList opened;
    QStringList schemes;
    QStringList tokens;
    bool canOpen = true;
    bool open(const URL &url, const QString &activationToken) override
    {
        opened.append(url.absoluteString());
        tokens.append(activationToken);
        return canOpen;
    }
    [[nodiscard]] QCoro::Task<bool> hasHandler(QString scheme) override { co_return schemes.contains(scheme); }
};

/// Keeps what it was asked to open.
class FakeEventEditor final : public EventEditorOpener
{
public:
    std::vector<std::optional<EKEvent>> opened;
    void openEventEditor(const std::optional<EKEvent> &existingEvent) override { opened.push_back(existingEvent); }
};

/// Counts how often it was asked.
class FakeSettings final : public SettingsOpener
{
public:
    int opened = 0;
    void openSettings() override { ++opened; }
};

/// What the store refuses a task with; empty where it does not. (QCoro::waitFor never comes back from a task that
/// throws.)
inline QCoro::Task<QString> refusal(QCoro::Task<> task)
{
    QString text;
    try {
        co_await task;
    } catch (const EKError &error) {
        text = QString::fromUtf8(error.what());
    }
    co_return text;
}

/// Keeps what it was asked for: "activate", or the day to show.
class FakeCalendarApplication final : public CalendarApplication
{
public:
    QStringList asked;
    std::optional<QString> failure;
    [[nodiscard]] QCoro::Task<std::optional<QString>> activate() override
    {
        asked.append(QStringLiteral("activate"));
        co_return std::optional(failure);
    }
    [[nodiscard]] QCoro::Task<std::optional<QString>> show(QDate day) override
    {
        asked.append(day.toString(Qt::ISODate));
        co_return std::optional(failure);
    }
};

/// Keeps what was copied.
class FakePasteboard final : public Pasteboard
{
public:
    QStringList contents;
    void clearContents() override { contents.clear(); }
    void setString(const QString &text) override { contents.append(text); }
};

/// Everything that AppState stands upon, real but for the clock, the workspace and where the objects come from.
struct World
{
    explicit World(const char *now, const char *localeIdentifier = "en_GB", const char *zoneName = "UTC")
        : clock(at(now, zone(zoneName)))
        , environment(clock, Locale::fromIdentifier(QLatin1String(localeIdentifier)), zone(zoneName))
        , defaults(folder.filePath(QStringLiteral("mintaro.conf")))
    {
        auto memory = std::make_unique<MemoryBackend>();
        backend = memory.get();
        database = std::make_shared<CalendarDatabase>(std::move(memory), nullptr, environment, notifications);
        database->follow();
    }

    void addCalendar(const char *identifier, const char *color = "#ff0000")
    {
        backend->addCollection(QLatin1String(identifier)).color = Color::fromHex(QString::fromLatin1(color));
    }

    /// `lines`: whatever the VEVENT holds besides its UID, with "\n" between; a title other than the UID as SUMMARY.
    void addEvent(const char *calendar, const char *uid, const QByteArray &lines)
    {
        add(calendar, uid, "VEVENT", lines);
    }
    void addReminder(const char *list, const char *uid, const QByteArray &lines) { add(list, uid, "VTODO", lines); }

    /// Has the store tell of a change of everything.
    void tellOfChange() const { backend->tell({ .collections = true, .objects = {} }); }

    AppState &state()
    {
        if (!m_state)
            m_state
                = std::make_unique<AppState>(AppState::Dependencies { database, notifications, defaults, environment,
                    workspace, &eventEditor, &settings, &pasteboard, &calendarApplication, userNotifications, log });
        return *m_state;
    }

    AppState &loaded()
    {
        QCoro::waitFor(state().requestAccessAndLoad());
        return state();
    }

    void destroyState() { m_state.reset(); }

    /// The lines of services and state since the last call, as in "error AppState: what was wrong".
    QStringList takeLog()
    {
        const QMutexLocker lock(&m_logMutex);
        return std::exchange(m_log, {});
    }

    LogSink log = [this](const LogMessage &message) {
        const QMutexLocker lock(&m_logMutex);
        const char *const level = message.level == LogLevel::Error ? "error" : "info";
        if (message.level != LogLevel::Debug)
            m_log.append(QStringLiteral("%1 %2: %3").arg(QLatin1String(level), message.category, message.text));
    };
    QTemporaryDir folder;
    FakeClock clock;
    Environment environment;
    UserDefaults defaults;
    NotificationCenter notifications;
    FakeWorkspace workspace;
    FakeEventEditor eventEditor;
    FakeSettings settings;
    FakePasteboard pasteboard;
    FakeCalendarApplication calendarApplication;
    /// To be set before the state is made; null: nobody is reminded.
    UNUserNotificationCenter *userNotifications = nullptr;
    MemoryBackend *backend = nullptr;
    std::shared_ptr<CalendarDatabase> database;

private:
    void add(const char *calendar, const char *uid, const QByteArray &component, const QByteArray &lines)
    {
        const QByteArray title = lines.contains("SUMMARY:") ? QByteArray() : QByteArray("SUMMARY:") + uid + '\n';
        const QByteArray text = "BEGIN:VCALENDAR\nVERSION:2.0\nBEGIN:" + component + "\nUID:" + uid + '\n' + title
            + lines + "\nEND:" + component + "\nEND:VCALENDAR\n";
        backend->put(QLatin1String(calendar), QLatin1String(uid) + QStringLiteral(".ics"), text);
    }

    QMutex m_logMutex;
    QStringList m_log;
    std::unique_ptr<AppState> m_state;
};

} // namespace mintaro
