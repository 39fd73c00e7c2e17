#pragma once

#include <QCoroTask>
#include <QString>

#include <optional>

namespace mintaro {

/// Asks the desktop, by xdg-mime and without a shell, which program opens files of that type: the identifier of its
/// desktop entry ("org.gnome.Calendar.desktop"), empty where none does. Nothing, and a log line, where the tool is
/// missing or does not answer within 10 seconds. For the main thread.
[[nodiscard]] QCoro::Task<std::optional<QString>> defaultHandler(QString mimeType);

} // namespace mintaro
