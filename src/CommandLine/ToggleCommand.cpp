#include "CommandLine/ToggleCommand.h"

#include "Platform/AppKit/SingleInstance.h"

#include <cstdio>

namespace mintaro {

QString ToggleCommand::summary() const
{
    return QStringLiteral("opens or closes the popover");
}

int ToggleCommand::run(const QCommandLineParser & /*arguments*/)
{
    const auto answer = SingleInstance::ask(SingleInstance::Request::Toggle, QDBusConnection::sessionBus());
    if (answer == SingleInstance::Answer::Done)
        return 0;
    const bool isAbsent = answer == SingleInstance::Answer::NotRunning;
    std::fputs(isAbsent ? "mintaroctl: Mintaro is not running\n" : "mintaroctl: Mintaro does not answer\n", stderr);
    return 1;
}

} // namespace mintaro
