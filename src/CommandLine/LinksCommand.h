#pragma once

#include "CommandLine/Command.h"

namespace mintaro {

/// The links in texts.
class LinksCommand final : public Command
{
public:
    [[nodiscard]] QString name() const override { return QStringLiteral("links"); }
    [[nodiscard]] QString summary() const override;
    void addOptions(QCommandLineParser &parser) const override;
    [[nodiscard]] int run(const QCommandLineParser &arguments) override;
};

} // namespace mintaro
