#pragma once

#include "CommandLine/Command.h"

namespace mintaro {

/// Adds an event.
class AddCommand final : public Command
{
public:
    [[nodiscard]] QString name() const override { return QStringLiteral("add"); }
    [[nodiscard]] QString summary() const override;
    [[nodiscard]] QString details() const override;
    void addOptions(QCommandLineParser &parser) const override;
    [[nodiscard]] int run(const QCommandLineParser &arguments) override;
};

} // namespace mintaro
