#include "CommandLine/NextCommand.h"

namespace mintaro {

QString NextCommand::summary() const
{
    return QStringLiteral("the next event and its countdown");
}

void NextCommand::addOptions(QCommandLineParser &parser) const
{
    parser.addOption({ QStringLiteral("json"), QStringLiteral("A JSON object.") });
}

int NextCommand::run(const QCommandLineParser &arguments)
{
    LoadedState state(arguments);
    const auto &next = state.appState().nextEvent();
    const TimeZone timeZone = state.environment().timeZone();
    if (arguments.isSet(QStringLiteral("json"))) {
        QJsonObject object = next ? toJson(*next, timeZone) : QJsonObject();
        if (next)
            object.insert(QStringLiteral("countdown"), state.appState().countdownText());
        printJson(object);
    } else if (next) {
        printLine(
            QStringLiteral("%1 %2 (%3)").arg(next->title, state.appState().countdownText(), next->timeRange(timeZone)));
    }
    return next ? 0 : 1;
}

} // namespace mintaro
