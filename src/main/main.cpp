#include "Platform/AppKit/SingleInstance.h"
#include "Platform/Foundation/Bundle.h"
#include "Platform/Foundation/Logger.h"
#include "main/MintaroApp.h"

#include <QCommandLineParser>
#include <QGuiApplication>
#include <QQuickWindow>

#include <cstdio>

namespace {

using mintaro::SingleInstance;

/// `request`: what is to be opened; a first instance has nothing to toggle and shows its item alone.
int run(const QCommandLineParser &arguments, SingleInstance::Request request)
{
    const auto options = mintaro::ContextOptions::from(arguments);
    SingleInstance instance(QDBusConnection::sessionBus());
    switch (instance.start(request)) {
    case SingleInstance::Start::First:
        break;
    case SingleInstance::Start::Second:
        return 0;
    case SingleInstance::Start::Stuck:
        std::fputs("mintaro: another one is running and does not answer\n", stderr);
        return 1;
    }
    mintaro::MintaroApp app(options);
    QObject::connect(&instance, &SingleInstance::showRequested, &app, &mintaro::MintaroApp::showPopover);
    QObject::connect(&instance, &SingleInstance::toggleRequested, &app, &mintaro::MintaroApp::togglePopover);
    QObject::connect(&instance, &SingleInstance::settingsRequested, &app, &mintaro::MintaroApp::openSettings);
    app.start();
    if (request == SingleInstance::Request::Show)
        app.showPopover();
    else if (request == SingleInstance::Request::Settings)
        app.openSettings();
    return QGuiApplication::exec();
}

} // namespace

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("mintaro"));
    QCoreApplication::setApplicationVersion(mintaro::Bundle::mainBundle().version());
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
    const QCommandLineOption settings(QStringLiteral("settings"), QStringLiteral("Open the settings at once."));
    parser.addOptions({ show, settings });
    parser.process(application);

    const auto request = parser.isSet(settings) ? SingleInstance::Request::Settings
        : parser.isSet(show)                    ? SingleInstance::Request::Show
                                                : SingleInstance::Request::Toggle;
    try {
        return run(parser, request);
    } catch (const std::exception &error) {
        std::fprintf(stderr, "mintaro: %s\n", error.what());
        return 2;
    }
}
