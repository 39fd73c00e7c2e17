#pragma once

#include <QCoroTask>
#include <QString>
#include <QVariantList>

namespace mintaro {

/// The identifier of KOrganizer's desktop entry.
[[nodiscard]] inline QString kOrganizerEntry()
{
    return QStringLiteral("org.kde.korganizer.desktop");
}

/// Calls a method of org.kde.Korganizer.Calendar on the session bus, and while the program is starting again and again
/// for up to 20 seconds. False, and a log line, where it is not answered. For the main thread.
QCoro::Task<bool> callKOrganizer(QString method, QVariantList arguments = {});

} // namespace mintaro
