#include "Platform/Foundation/Logger.h"
#include "main/MintaroApp.h"

#include <QCommandLineParser>
#include <QGuiApplication>
#include <QQuickWindow>

#include <cstdio>

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("mintaro"));
    QCoreApplication::setApplicationVersion(QStringLiteral(MINTARO_VERSION));
    QGuiApplication::setDesktopFileName(QString::fromLatin1(mintaro::kSubsystem));
    // A small card that mostly stands still is drawn sooner without a graphics driver, and in a third of the memory.
    if (!qEnvironmentVariableIsSet("QT_QUICK_BACKEND"))
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    // The popover is a window that comes and goes; the item is the program.
    QGuiApplication::setQuitOnLastWindowClosed(false);

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("A calendar that lives in the desktop's panel."));
    parser.addHelpOption();
    parser.addVersionOption();
    mintaro::ContextOptions::addTo(parser);
    const QCommandLineOption show(QStringLiteral("show"), QStringLiteral("Open the popover at once."));
    parser.addOption(show);
    parser.process(application);

    try {
        mintaro::MintaroApp app(mintaro::ContextOptions::from(parser));
        app.start();
        if (parser.isSet(show))
            app.showPopover();
        return QGuiApplication::exec();
    } catch (const std::exception &error) {
        std::fprintf(stderr, "mintaro: %s\n", error.what());
        return 2;
    }
}
