#pragma once

#include "CalendarModel.h"
#include "Platform/EventKit/CalendarDatabase.h"
#include "support/MemoryBackend.h"

namespace mintaro::model {

/// A reminder as a user sees it.
struct Reminder
{
    QString calendar;
    QString uid;
    QString title;
    LocalTime due {};
    bool isCompleted = false;
    /// From one to the next; 0 for one that happens once.
    std::chrono::days step { 0 };
    /// How often it is due, this time included.
    int count = 1;
};

using Contents = std::map<QString, std::map<QString, QByteArray>>;
[[nodiscard]] Contents contentsOf(const MemoryBackend &backend);

/// The time that questions are for.
[[nodiscard]] EKEventPredicate longWindow();

// Each throws std::logic_error where it does not hold.

void require(bool holds, const std::string &otherwise);
/// The store answers as the model does.
void checkAnswers(CalendarDatabase &database, const Calendars &calendars, const std::vector<Reminder> &reminders);
/// The texts are well-formed, and say each thing once.
void checkTexts(const Contents &contents);
/// What other programs wrote is there.
void checkTags(const Contents &contents, const Calendars &calendars);
/// Nothing else changed than what belongs to these UIDs, or to no UID of before.
void checkOthers(const Contents &before, const Contents &after, const std::set<QString> &touched);

} // namespace mintaro::model
