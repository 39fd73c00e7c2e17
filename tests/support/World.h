#pragma once

#include "App/AppState.h"
#include "Platform/AppKit/Workspace.h"
#include "Platform/EventKit/CalendarDatabase.h"
#include "support/MemoryBackend.h"
#include "support/Printers.h"

#include <QTemporaryDir>

namespace mintaro {

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
    void open(const URL &url) override { opened.append(url.absoluteString()); }
    [[nodiscard]] QCoro::Task<bool> hasHandler(QString scheme) override { co_return schemes.contains(scheme); }
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
        database = std::make_shared<CalendarDatabase>(std::move(memory), environment, notifications);
    }

    void addCalendar(const char *identifier, const char *color = "#ff0000")
    {
        backend->addCollection(QLatin1String(identifier)).color = Color::fromHex(QString::fromLatin1(color));
    }

    /// `times`: whatever lines of a VEVENT say when, without line ends at the end.
    void addEvent(const char *calendar, const char *uid, const QByteArray &times)
    {
        add(calendar, uid, "VEVENT", times);
    }
    void addReminder(const char *list, const char *uid, const QByteArray &times) { add(list, uid, "VTODO", times); }

    AppState &state()
    {
        if (!m_state)
            m_state = std::make_unique<AppState>(
                AppState::Dependencies { database, notifications, defaults, environment, workspace });
        return *m_state;
    }

    AppState &loaded()
    {
        QCoro::waitFor(state().requestAccessAndLoad());
        return state();
    }

    QTemporaryDir folder;
    FakeClock clock;
    Environment environment;
    UserDefaults defaults;
    NotificationCenter notifications;
    FakeWorkspace workspace;
    MemoryBackend *backend = nullptr;
    std::shared_ptr<CalendarDatabase> database;

private:
    void add(const char *calendar, const char *uid, const QByteArray &component, const QByteArray &times)
    {
        const QByteArray text = "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nBEGIN:" + component + "\r\nUID:" + uid
            + "\r\nSUMMARY:" + uid + "\r\n" + times + "\r\nEND:" + component + "\r\nEND:VCALENDAR\r\n";
        backend->put(QLatin1String(calendar), QLatin1String(uid) + QStringLiteral(".ics"), text);
    }

    std::unique_ptr<AppState> m_state;
};

} // namespace mintaro
