#pragma once

#include "CommandLine/Command.h"

namespace mintaro {

/// A command that lists occurrences, straight from the store's query.
class OccurrenceListCommand : public Command
{
public:
    void addOptions(QCommandLineParser &parser) const override;
    [[nodiscard]] int run(const QCommandLineParser &arguments) final;

protected:
    /// What the store is asked for. Throws CommandError.
    [[nodiscard]] virtual EKEventPredicate predicate(
        const QCommandLineParser &arguments, const Environment &environment) const = 0;
    [[nodiscard]] virtual bool isListed(const EKEvent &) const { return true; }

    /// The value of --from or --to; throws CommandError where it is absent or makes no sense.
    [[nodiscard]] static Date moment(const QCommandLineParser &arguments, const char *option, const TimeZone &timeZone);
};

} // namespace mintaro
