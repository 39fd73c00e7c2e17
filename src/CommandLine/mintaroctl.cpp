#include "CommandLine/Command.h"

#include <QCoreApplication>

#include <csignal>
#include <cstdio>

namespace {

void addCommandList(QCommandLineParser &parser, const std::vector<std::unique_ptr<mintaro::Command>> &commands)
{
    QString list;
    for (const auto &command : commands)
        list += QStringLiteral("\n  %1 %2").arg(command->name(), -12).arg(command->summary());
    parser.addPositionalArgument(QStringLiteral("command"), QStringLiteral("One of:") + list);
}

} // namespace

int main(int argc, char **argv)
{
    // A reader that goes ends the printing, not the program in the middle of something.
    std::signal(SIGPIPE, SIG_IGN);
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("mintaroctl"));
    QCoreApplication::setApplicationVersion(QStringLiteral(MINTARO_VERSION));

    const auto commands = mintaro::allCommands();
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Mintaro for scripts and panels."));
    parser.addHelpOption();
    parser.addVersionOption();
    mintaro::ContextOptions::addTo(parser);

    const QStringList words = QCoreApplication::arguments().mid(1);
    const auto command = std::ranges::find_if(commands, [&](const auto &each) { return words.contains(each->name()); });
    if (command == commands.end()) {
        addCommandList(parser, commands);
        parser.process(application);
        std::fprintf(stderr, "mintaroctl: which command?\n\n");
        parser.showHelp(2);
    }
    parser.addPositionalArgument((*command)->name(), (*command)->summary(), (*command)->name());
    (*command)->addOptions(parser);
    parser.process(application);
    try {
        return (*command)->run(parser);
    } catch (const std::exception &error) {
        std::fprintf(stderr, "mintaroctl: %s\n", error.what());
        return 2;
    }
}
