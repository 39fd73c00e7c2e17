#pragma once

#include "CommandLine/Command.h"

namespace mintaro {

/// Lists what the journal of changes has kept, and brings it back.
class RestoreCommand final : public Command
{
public:
    [[nodiscard]] QString name() const override { return QStringLiteral("restore"); }
    [[nodiscard]] QString summary() const override;
    [[nodiscard]] QString details() const override;
    void addOptions(QCommandLineParser &parser) const override;
    [[nodiscard]] int run(const QCommandLineParser &arguments) override;
};

} // namespace mintaro
