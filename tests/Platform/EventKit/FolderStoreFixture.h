#pragma once

#include "EngineFixture.h"
#include "Platform/EventKit/Folders/FoldersBackend.h"
#include "StoreFixture.h"

namespace mintaro {

/// Folders that counts how often the engine reads an object.
class CountedFolders final : public FoldersBackend
{
public:
    CountedFolders(std::atomic<int> &reads, BaseFolders baseFolders, std::optional<QString> root, Logger logger)
        : FoldersBackend(std::move(baseFolders), std::move(root), std::move(logger))
        , m_reads(reads)
    {
    }

    [[nodiscard]] std::optional<QByteArray> read(const QString &collection, const QString &name) override
    {
        ++m_reads;
        return FoldersBackend::read(collection, name);
    }

private:
    std::atomic<int> &m_reads;
};

/// The engine over real folders, as a user has it.
class FolderStoreFixture : public StoreFixture
{
protected:
    /// Looks at a root, or where none is given at what the configuration names.
    void open(const std::optional<QString> &root)
    {
        database.reset();
        reads = 0;
        database = std::make_unique<CalendarDatabase>(
            std::make_unique<CountedFolders>(reads, baseFolders(), root ? std::optional(path(*root)) : root, logger()),
            nullptr, environment, notifications, logger());
    }

    /// The titles of all events, sorted; empty too without access.
    [[nodiscard]] QStringList titles()
    {
        QStringList titles;
        if (!database->requestAccess())
            return titles;
        for (const EKEvent &event : database->events({ utc("2026-01-01T00:00:00Z"), utc("2027-01-01T00:00:00Z") }))
            titles.append(event.title().value_or(QString()));
        titles.sort();
        return titles;
    }

    [[nodiscard]] QStringList calendars() const
    {
        QStringList titles;
        for (const EKCalendarRef &calendar : database->calendars())
            titles.append(calendar->title);
        return titles;
    }

    [[nodiscard]] static QByteArray eventCalled(const QByteArray &title)
    {
        return calendarOf(
            "BEGIN:VEVENT\nUID:" + title + "\nDTSTART:20260301T090000Z\nSUMMARY:" + title + "\nEND:VEVENT");
    }

    FixedClock clock { utc("2026-03-01T09:00:00Z") };
    Environment environment { clock, Locale {}, *TimeZone::named(QStringLiteral("Europe/Rome")) };
    NotificationCenter notifications;
    std::atomic<int> reads = 0;
    std::unique_ptr<CalendarDatabase> database;
};

} // namespace mintaro
