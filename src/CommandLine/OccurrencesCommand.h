#pragma once

#include "CommandLine/OccurrenceListCommand.h"

namespace mintaro {

/// All occurrences that overlap a range.
class OccurrencesCommand final : public OccurrenceListCommand
{
public:
    [[nodiscard]] QString name() const override { return QStringLiteral("occurrences"); }
    [[nodiscard]] QString summary() const override;

protected:
    [[nodiscard]] EKEventPredicate predicate(
        const QCommandLineParser &arguments, const Environment &environment) const override;
};

} // namespace mintaro
