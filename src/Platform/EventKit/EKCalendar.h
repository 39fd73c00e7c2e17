#pragma once

#include "Platform/Foundation/Color.h"

#include <QString>

#include <memory>

namespace mintaro {

enum class EKEntityType { Event = 0, Reminder = 1 };

/// An account: where calendars come from. For folders, a root folder.
struct EKSource
{
    QString sourceIdentifier;
    QString title;

    friend bool operator==(const EKSource &, const EKSource &) = default;
};

/// A calendar or a reminder list; a folder of mixed content is both. An immutable snapshot.
struct EKCalendar
{
    /// Stable across restarts.
    QString calendarIdentifier;
    QString title;
    Color cgColor;
    EKSource source;
    bool allowsContentModifications = false;
    bool allowsEvents = true;
    bool allowsReminders = false;

    friend bool operator==(const EKCalendar &, const EKCalendar &) = default;
};

using EKCalendarRef = std::shared_ptr<const EKCalendar>;

} // namespace mintaro
