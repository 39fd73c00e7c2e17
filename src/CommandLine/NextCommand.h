#pragma once

#include "CommandLine/Command.h"

namespace mintaro {

/// The next event and how long until then.
class NextCommand final : public Command
{
public:
    [[nodiscard]] QString name() const override { return QStringLiteral("next"); }
    [[nodiscard]] QString summary() const override;
    void addOptions(QCommandLineParser &parser) const override;
    [[nodiscard]] int run(const QCommandLineParser &arguments) override;
};

} // namespace mintaro
