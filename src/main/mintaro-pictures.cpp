#include "main/Pictures.h"

#include <QCommandLineParser>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <cstdio>

// Draws every view in light and dark, English and Italian, on a given store and moment: for the README, for review and
// for tests. Needs no display.
int main(int argc, char **argv)
{
    // Alike on every machine: no graphics driver, no desktop, no preferences of the user's.
    const QTemporaryDir preferences;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    qputenv("QT_SCALE_FACTOR", "2");
    QGuiApplication application(argc, argv);

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Draws every view of Mintaro to PNG files."));
    parser.addHelpOption();
    mintaro::ContextOptions::addTo(parser);
    parser.addPositionalArgument(QStringLiteral("folder"), QStringLiteral("Where the pictures go."));
    parser.process(application);
    if (parser.positionalArguments().size() != 1)
        parser.showHelp(2);

    try {
        for (const char *identifier : { "en_GB", "it_IT" }) {
            mintaro::PictureJob job { mintaro::ContextOptions::from(parser), parser.positionalArguments().first(), {} };
            job.options.preferences = preferences.filePath(QStringLiteral("mintaro.conf"));
            if (!job.options.locale)
                job.options.locale = mintaro::Locale::fromIdentifier(QLatin1String(identifier));
            job.language = job.options.locale->language;
            for (const QString &file : mintaro::drawPictures(job))
                std::printf("%s\n", qPrintable(file));
            if (parser.isSet(QStringLiteral("locale")))
                break;
        }
    } catch (const std::exception &error) {
        std::fprintf(stderr, "mintaro-pictures: %s\n", error.what());
        return 1;
    }
    return 0;
}
