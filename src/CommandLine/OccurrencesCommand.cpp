#include "CommandLine/OccurrencesCommand.h"

namespace mintaro {

QString OccurrencesCommand::summary() const
{
    return QStringLiteral("all occurrences that overlap a range");
}

EKEventPredicate OccurrencesCommand::predicate(
    const QCommandLineParser &arguments, const Environment &environment) const
{
    const TimeZone timeZone = environment.timeZone();
    return EKEventStore::predicateForEvents(
        moment(arguments, "from", timeZone), moment(arguments, "to", timeZone), std::nullopt);
}

} // namespace mintaro
