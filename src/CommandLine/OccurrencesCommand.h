#pragma once

#include "CommandLine/Command.h"

namespace mintaro {

/// All occurrences that overlap a range, straight from the store's query.
class OccurrencesCommand final : public Command
{
public:
    [[nodiscard]] QString name() const override { return QStringLiteral("occurrences"); }
    [[nodiscard]] QString summary() const override;
    void addOptions(QCommandLineParser &parser) const override;
    [[nodiscard]] int run(const QCommandLineParser &arguments) override;
};

} // namespace mintaro
