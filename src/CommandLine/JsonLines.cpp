#include "CommandLine/JsonLines.h"

#include <QJsonDocument>

#include <algorithm>
#include <cstdio>

namespace mintaro {

void JsonLines::addOptions(QCommandLineParser &parser)
{
    parser.addOption({ QStringLiteral("json-lines"), QStringLiteral("Read and write one JSON object per line.") });
    parser.addOption(
        { QStringLiteral("timing"), QStringLiteral("The median microseconds per line, on standard error.") });
}

JsonLines::JsonLines()
{
    if (!m_input.open(stdin, QIODevice::ReadOnly))
        throw CommandError(QStringLiteral("cannot read standard input"));
}

std::optional<QJsonObject> JsonLines::next()
{
    while (!m_input.atEnd()) {
        const QByteArray line = m_input.readLine().trimmed();
        if (line.isEmpty())
            continue;
        const QJsonObject question = QJsonDocument::fromJson(line).object();
        if (!question.contains(QLatin1String("text")))
            throw CommandError(QStringLiteral("no JSON object with a text: %1").arg(QString::fromUtf8(line.left(80))));
        return question;
    }
    return std::nullopt;
}

void JsonLines::answer(const QJsonObject &question, QJsonObject answer) const
{
    answer.insert(QLatin1String("id"), question.value(QLatin1String("id")));
    printJson(answer);
}

void JsonLines::finish(const QCommandLineParser &arguments)
{
    if (!arguments.isSet(QStringLiteral("timing")) || m_times.empty())
        return;
    const auto middle = m_times.begin() + static_cast<std::ptrdiff_t>(m_times.size() / 2);
    std::nth_element(m_times.begin(), middle, m_times.end());
    std::fprintf(stderr, "median_us %.3f\n", static_cast<double>(*middle) / 1000.0);
}

} // namespace mintaro
