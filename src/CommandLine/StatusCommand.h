#pragma once

#include "CommandLine/Command.h"

namespace mintaro {

/// The label's text, once or as it changes.
class StatusCommand final : public Command
{
public:
    [[nodiscard]] QString name() const override { return QStringLiteral("status"); }
    [[nodiscard]] QString summary() const override;
    void addOptions(QCommandLineParser &parser) const override;
    [[nodiscard]] int run(const QCommandLineParser &arguments) override;
};

} // namespace mintaro
