#include "CommandLine/LinksCommand.h"

#include "CommandLine/JsonLines.h"
#include "Platform/Foundation/LinkDetector.h"

#include <QJsonArray>

#include <cstdio>

namespace mintaro {

namespace {

QStringList linksIn(const LinkDetector &detector, const QString &text)
{
    QStringList links;
    for (const auto &match : detector.matches(text))
        links.append(match.url.absoluteString());
    return links;
}

} // namespace

QString LinksCommand::summary() const
{
    return QStringLiteral("the links in a text");
}

void LinksCommand::addOptions(QCommandLineParser &parser) const
{
    parser.addPositionalArgument(
        QStringLiteral("text"), QStringLiteral("The text; without one, standard input."), QStringLiteral("[text]"));
    JsonLines::addOptions(parser);
}

int LinksCommand::run(const QCommandLineParser &arguments)
{
    const LinkDetector detector;
    if (arguments.isSet(QStringLiteral("json-lines"))) {
        JsonLines lines;
        while (const auto question = lines.next()) {
            const QString text = question->value(QLatin1String("text")).toString();
            const QStringList links = lines.measured([&] { return linksIn(detector, text); });
            lines.answer(*question, { { QStringLiteral("links"), QJsonArray::fromStringList(links) } });
        }
        lines.finish(arguments);
        return 0;
    }
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly))
        throw CommandError(QStringLiteral("cannot read standard input"));
    const QStringList texts = arguments.positionalArguments().mid(1);
    const QString text = texts.isEmpty() ? QString::fromUtf8(input.readAll()) : texts.join(u' ');
    for (const QString &link : linksIn(detector, text))
        printLine(link);
    return 0;
}

} // namespace mintaro
