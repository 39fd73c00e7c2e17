#pragma once

#include "Platform/EventKit/Writing/EventEditor.h"

namespace mintaro {

/// Works out what changing or removing a reminder does to the objects that hold it, as EventEditor does for events.

/// Ticks a reminder off, with the moment when it was done, or opens it again. One that repeats goes on as a reminder of
/// its own for its next time, as other programs do it. Throws EKError.
[[nodiscard]] StoreEdit completeReminder(std::vector<ObjectText> objects, const QString &uid, bool isCompleted,
    const std::optional<Date> &completionDate, const EditContext &context);
/// Throws EKError.
[[nodiscard]] StoreEdit removeReminder(std::vector<ObjectText> objects, const QString &uid);

} // namespace mintaro
