#pragma once

#include "Platform/EventKit/CalendarDatabase.h"
#include "support/MemoryBackend.h"

#include <QMutex>
#include <QStringList>

#include <gtest/gtest.h>

namespace mintaro {

/// 2026-03-01T09:00:00Z as a Date.
inline Date utc(const char *text)
{
    const QByteArray digits = QByteArray(text).replace("-", "").replace(":", "").replace("T", "").replace("Z", "");
    const auto part = [&digits](int at, int length) { return digits.mid(at, length).toInt(); };
    const std::chrono::year_month_day day { std::chrono::year { part(0, 4) },
        std::chrono::month { static_cast<unsigned>(part(4, 2)) },
        std::chrono::day { static_cast<unsigned>(part(6, 2)) } };
    return std::chrono::sys_days { day } + std::chrono::hours { part(8, 2) } + std::chrono::minutes { part(10, 2) }
    + std::chrono::seconds { part(12, 2) };
}

inline QString text(Date date)
{
    using namespace std::chrono;
    const auto day = floor<days>(date);
    const year_month_day civil { day };
    const hh_mm_ss time { floor<seconds>(date - day) };
    return QString::asprintf("%04d%02u%02uT%02d%02d%02dZ", static_cast<int>(civil.year()),
        static_cast<unsigned>(civil.month()), static_cast<unsigned>(civil.day()),
        static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
        static_cast<int>(time.seconds().count()));
}

/// A VCALENDAR around content lines that "\n" parts.
inline QByteArray calendarOf(const QByteArray &lines)
{
    return "BEGIN:VCALENDAR\nVERSION:2.0\n" + lines + "\nEND:VCALENDAR\n";
}

inline QByteArray eventOf(const QByteArray &lines)
{
    return calendarOf("BEGIN:VEVENT\nUID:one\n" + lines + "\nEND:VEVENT");
}

/// A database over a store in memory, in Rome, with its log at hand. One collection, "work", is there.
class EngineFixture : public ::testing::Test
{
protected:
    EngineFixture()
    {
        auto memory = std::make_unique<MemoryBackend>();
        backend = memory.get();
        backend->addCollection(QStringLiteral("work"));
        database = std::make_shared<CalendarDatabase>(std::move(memory), nullptr, environment, notifications,
            Logger(QStringLiteral("EventStore"), [this](const LogMessage &message) {
                const QMutexLocker lock(&logMutex);
                log.append(message.text);
            }));
        database->follow();
    }

    void put(const QByteArray &text, const QString &name = QStringLiteral("a.ics"))
    {
        backend->put(QStringLiteral("work"), name, text);
    }

    std::vector<EKEvent> events(const char *from = "2026-01-01T00:00:00Z", const char *to = "2027-01-01T00:00:00Z")
    {
        EXPECT_TRUE(database->requestAccess());
        return database->events({ utc(from), utc(to), std::nullopt });
    }

    std::vector<EKReminder> reminders()
    {
        EXPECT_TRUE(database->requestAccess());
        return database->reminders({});
    }

    QStringList titles(const std::vector<EKEvent> &list)
    {
        QStringList result;
        for (const EKEvent &event : list)
            result.append(event.title().value_or(QStringLiteral("-")));
        return result;
    }

    FixedClock clock { utc("2026-03-01T09:00:00Z") };
    Environment environment { clock, Locale {}, *TimeZone::named(QStringLiteral("Europe/Rome")) };
    NotificationCenter notifications;
    QMutex logMutex;
    QStringList log;
    MemoryBackend *backend = nullptr;
    std::shared_ptr<CalendarDatabase> database;
};

} // namespace mintaro
