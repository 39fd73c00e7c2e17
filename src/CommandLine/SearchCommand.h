#pragma once

#include "CommandLine/OccurrenceListCommand.h"

namespace mintaro {

/// The events whose texts contain one, found as the search of the popover finds them.
class SearchCommand final : public OccurrenceListCommand
{
public:
    [[nodiscard]] QString name() const override { return QStringLiteral("search"); }
    [[nodiscard]] QString summary() const override;
    void addOptions(QCommandLineParser &parser) const override;

protected:
    [[nodiscard]] EKEventPredicate predicate(
        const QCommandLineParser &arguments, const Environment &environment) const override;
    [[nodiscard]] bool isListed(const EKEvent &event) const override { return !isDeclinedByCurrentUser(event); }
};

} // namespace mintaro
