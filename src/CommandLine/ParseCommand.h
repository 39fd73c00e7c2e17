#pragma once

#include "CommandLine/Command.h"

namespace mintaro {

/// What a sentence says: the event that the quick entry field would make of it.
class ParseCommand final : public Command
{
public:
    [[nodiscard]] QString name() const override { return QStringLiteral("parse"); }
    [[nodiscard]] QString summary() const override;
    [[nodiscard]] QString details() const override;
    void addOptions(QCommandLineParser &parser) const override;
    [[nodiscard]] int run(const QCommandLineParser &arguments) override;
};

} // namespace mintaro
