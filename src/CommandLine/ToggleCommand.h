#pragma once

#include "CommandLine/Command.h"

namespace mintaro {

/// Opens and closes the popover of the Mintaro that runs, for a key binding.
class ToggleCommand final : public Command
{
public:
    [[nodiscard]] QString name() const override { return QStringLiteral("toggle"); }
    [[nodiscard]] QString summary() const override;
    [[nodiscard]] int run(const QCommandLineParser &arguments) override;
};

} // namespace mintaro
