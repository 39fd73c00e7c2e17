#pragma once

#include "Platform/AppKit/CalendarApplication.h"

#include <memory>

namespace mintaro {

/// The program that opens text/calendar on this desktop. GNOME Calendar, KOrganizer and Evolution show the day that
/// they are asked for; any other is only started.
class DesktopCalendarApplication final : public CalendarApplication
{
public:
    DesktopCalendarApplication();
    ~DesktopCalendarApplication() override;

    [[nodiscard]] QCoro::Task<std::optional<QString>> activate() override;
    [[nodiscard]] QCoro::Task<std::optional<QString>> show(QDate day) override;

private:
    class Program;
    /// Shared with a call that is under way, which may outlive this object.
    const std::shared_ptr<Program> m_program;
};

} // namespace mintaro
