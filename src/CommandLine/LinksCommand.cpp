#include "CommandLine/LinksCommand.h"

#include "Platform/Foundation/LinkDetector.h"

#include <QElapsedTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

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

double median(std::vector<qint64> nanoseconds)
{
    if (nanoseconds.empty())
        return 0;
    const auto middle = nanoseconds.begin() + static_cast<std::ptrdiff_t>(nanoseconds.size() / 2);
    std::nth_element(nanoseconds.begin(), middle, nanoseconds.end());
    return static_cast<double>(*middle) / 1000.0;
}

/// Reads objects with "id" and "text", writes objects with "id" and "links", in the same order.
std::vector<qint64> answerLines(QFile &input, const LinkDetector &detector)
{
    std::vector<qint64> times;
    QElapsedTimer timer;
    while (!input.atEnd()) {
        const QByteArray line = input.readLine().trimmed();
        if (line.isEmpty())
            continue;
        const QJsonObject question = QJsonDocument::fromJson(line).object();
        if (!question.contains(QLatin1String("text")))
            throw CommandError(QStringLiteral("no JSON object with a text: %1").arg(QString::fromUtf8(line.left(80))));
        timer.start();
        const QStringList links = linksIn(detector, question.value(QLatin1String("text")).toString());
        times.push_back(timer.nsecsElapsed());
        printJson({ { QStringLiteral("id"), question.value(QLatin1String("id")) },
            { QStringLiteral("links"), QJsonArray::fromStringList(links) } });
    }
    return times;
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
    parser.addOption({ QStringLiteral("json-lines"), QStringLiteral("Read and write one JSON object a line.") });
    parser.addOption({ QStringLiteral("timing"), QStringLiteral("Median microseconds for a line on standard error.") });
}

int LinksCommand::run(const QCommandLineParser &arguments)
{
    const LinkDetector detector;
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly))
        throw CommandError(QStringLiteral("cannot read standard input"));
    if (arguments.isSet(QStringLiteral("json-lines"))) {
        const auto times = answerLines(input, detector);
        if (arguments.isSet(QStringLiteral("timing")))
            std::fprintf(stderr, "median_us %.3f\n", median(times));
        return 0;
    }
    const QStringList texts = arguments.positionalArguments().mid(1);
    const QString text = texts.isEmpty() ? QString::fromUtf8(input.readAll()) : texts.join(u' ');
    for (const QString &link : linksIn(detector, text))
        printLine(link);
    return 0;
}

} // namespace mintaro
