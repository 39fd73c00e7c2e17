#pragma once

#include <QCoroTask>
#include <QDate>
#include <QString>

#include <optional>

namespace mintaro {

/// The desktop's own calendar program. To be used on the main thread, which no operation makes wait. Each gives why it
/// failed, in words for the user, or nothing.
class CalendarApplication
{
public:
    virtual ~CalendarApplication() = default;

    /// Starts it, or brings it to the front.
    [[nodiscard]] virtual QCoro::Task<std::optional<QString>> activate() = 0;
    /// Shows that day, as far as the program can be told to. The day must be valid.
    [[nodiscard]] virtual QCoro::Task<std::optional<QString>> show(QDate day) = 0;
};

} // namespace mintaro
