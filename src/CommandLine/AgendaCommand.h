#pragma once

#include "CommandLine/Command.h"

namespace mintaro {

/// The agenda from today, or from --from, as the popover shows it.
class AgendaCommand final : public Command
{
public:
    [[nodiscard]] QString name() const override { return QStringLiteral("agenda"); }
    [[nodiscard]] QString summary() const override;
    void addOptions(QCommandLineParser &parser) const override;
    [[nodiscard]] int run(const QCommandLineParser &arguments) override;
};

} // namespace mintaro
