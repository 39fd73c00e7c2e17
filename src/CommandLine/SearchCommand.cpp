#include "CommandLine/SearchCommand.h"

namespace mintaro {

QString SearchCommand::summary() const
{
    return QStringLiteral("the events within a year that contain a text");
}

void SearchCommand::addOptions(QCommandLineParser &parser) const
{
    parser.addPositionalArgument(QStringLiteral("text"),
        QStringLiteral("What title, location or notes contain, ignoring case."), QStringLiteral("text"));
    OccurrenceListCommand::addOptions(parser);
}

EKEventPredicate SearchCommand::predicate(const QCommandLineParser &arguments, const Environment &environment) const
{
    const QString text = SearchViewModel::query(arguments.positionalArguments().mid(1).join(u' '));
    if (text.isEmpty())
        throw CommandError(QStringLiteral("which text?"));
    DateInterval range = SearchViewModel::range(environment);
    if (arguments.isSet(QStringLiteral("from")))
        range.start = moment(arguments, "from", environment.timeZone());
    if (arguments.isSet(QStringLiteral("to")))
        range.end = moment(arguments, "to", environment.timeZone());
    return EKEventStore::predicateForEvents(range.start, range.end, std::nullopt, text);
}

} // namespace mintaro
