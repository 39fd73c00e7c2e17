#include "CommandLine/StatusCommand.h"

#include "Views/Main/MenuBarLabel.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <cstdio>
#include <unistd.h>

namespace mintaro {

namespace {

/// The classes that a bar's style sheet can tell apart.
QString styleClass(const AppState &appState, Date now)
{
    const auto &next = appState.nextEvent();
    if (!next)
        return QStringLiteral("none");
    return next->startDate <= now ? QStringLiteral("now") : QStringLiteral("soon");
}

bool print(const MenuBarLabel &label, LoadedState &state, const QString &format)
{
    bool isRead = true;
    if (format == QLatin1String("waybar")) {
        // Waybar reads text and tooltip as Pango markup.
        isRead = printJson({ { QStringLiteral("text"), label.text().toHtmlEscaped() },
            { QStringLiteral("tooltip"), label.toolTip().toHtmlEscaped() },
            { QStringLiteral("class"), styleClass(state.appState(), state.environment().now()) } });
    } else {
        isRead = printLine(label.text());
    }
    return std::fflush(stdout) == 0 && isRead;
}

} // namespace

QString StatusCommand::summary() const
{
    return QStringLiteral("the label's text, for bars that run a command");
}

void StatusCommand::addOptions(QCommandLineParser &parser) const
{
    parser.addOption(
        { QStringLiteral("follow"), QStringLiteral("A line at each change, for as long as somebody reads them.") });
    parser.addOption({ QStringLiteral("format"), QStringLiteral("plain (as it is) or waybar (JSON)."),
        QStringLiteral("format"), QStringLiteral("plain") });
}

int StatusCommand::run(const QCommandLineParser &arguments)
{
    const QString format = arguments.value(QStringLiteral("format"));
    if (format != QLatin1String("plain") && format != QLatin1String("waybar"))
        throw CommandError(QStringLiteral("--format: there is plain and waybar"));
    LoadedState state(arguments);
    MenuBarLabel label(state.appState());
    if (!print(label, state, format) || !arguments.isSet(QStringLiteral("follow")))
        return 0;
    QObject::connect(&label, &MenuBarLabel::changed, &label, [&] {
        if (!print(label, state, format))
            QCoreApplication::quit();
    });
    // A bar that ends closes the pipe; it becomes readable on our side with an error then.
    QSocketNotifier readerGone(STDOUT_FILENO, QSocketNotifier::Exception);
    QObject::connect(&readerGone, &QSocketNotifier::activated, &label, [] { QCoreApplication::quit(); });
    state.follow();
    label.appear();
    return QCoreApplication::exec();
}

} // namespace mintaro
