#include "CommandLine/Command.h"
#include "Platform/Foundation/Bundle.h"

#include <QCoreApplication>

#include <csignal>
#include <cstdio>

namespace {

constexpr int kWrongCall = 2;

void addCommandList(QCommandLineParser &parser, const std::vector<std::unique_ptr<mintaro::Command>> &commands)
{
    QString list;
    for (const auto &command : commands)
        list += QStringLiteral("\n  %1 %2").arg(command->name(), -12).arg(command->summary());
    parser.addPositionalArgument(QStringLiteral("command"), QStringLiteral("One of:") + list);
}

/// The first word that names a command and is no value of an option; null without one.
mintaro::Command *commandIn(QCommandLineParser &parser, const std::vector<std::unique_ptr<mintaro::Command>> &commands)
{
    // The commands' own options are unknown as yet, which does not matter here.
    parser.parse(QCoreApplication::arguments());
    for (const QString &word : parser.positionalArguments()) {
        const auto found = std::ranges::find(commands, word, [](const auto &command) { return command->name(); });
        if (found != commands.end())
            return found->get();
    }
    return nullptr;
}

int complain(const QString &text)
{
    std::fprintf(stderr, "mintaroctl: %s\n", qUtf8Printable(text));
    return kWrongCall;
}

} // namespace

int main(int argc, char **argv)
{
    // A reader that goes ends the printing, not the program in the middle of something.
    std::signal(SIGPIPE, SIG_IGN);
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("mintaroctl"));
    QCoreApplication::setApplicationVersion(mintaro::Bundle::mainBundle().version());

    const auto commands = mintaro::allCommands();
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Mintaro for scripts and panels."));
    parser.addHelpOption();
    parser.addVersionOption();
    mintaro::ContextOptions::addTo(parser);

    mintaro::Command *const command = commandIn(parser, commands);
    if (command) {
        parser.addPositionalArgument(command->name(), command->summary(), command->name());
        if (!command->details().isEmpty())
            parser.setApplicationDescription(command->details());
        command->addOptions(parser);
    } else {
        addCommandList(parser, commands);
    }
    if (!parser.parse(QCoreApplication::arguments()))
        return complain(parser.errorText());
    // Answers --help and --version.
    parser.process(application);
    if (!command) {
        complain(QStringLiteral("which command?\n"));
        parser.showHelp(kWrongCall);
    }
    try {
        return command->run(parser);
    } catch (const std::exception &error) {
        return complain(QString::fromUtf8(error.what()));
    }
}
