#include "Platform/AppKit/DefaultHandler.h"

#include "Platform/Foundation/Logger.h"

#include <QCoroProcess>
#include <QProcess>
#include <QStandardPaths>

#include <chrono>

namespace mintaro {

using namespace std::chrono_literals;

namespace {

constexpr auto kAnswerTime = 10s;

void logError(const QString &text)
{
    Logger(QStringLiteral("Workspace")).error(text);
}

} // namespace

QCoro::Task<std::optional<QString>> defaultHandler(QString mimeType)
{
    const QString tool = QStandardPaths::findExecutable(QStringLiteral("xdg-mime"));
    if (tool.isEmpty()) { // QCoro would wait its whole time for the start of a program that is not there
        logError(QStringLiteral("xdg-mime is missing"));
        co_return std::nullopt;
    }
    QProcess query;
    query.setStandardErrorFile(QProcess::nullDevice());
    query.start(tool, { QStringLiteral("query"), QStringLiteral("default"), mimeType });
    if (query.state() != QProcess::NotRunning) {
        co_await qCoro(query).waitForFinished(kAnswerTime);
    }
    if (query.state() != QProcess::NotRunning) {
        logError(QStringLiteral("xdg-mime does not answer"));
        query.kill();
        co_return std::nullopt;
    }
    co_return QString::fromLocal8Bit(query.readAllStandardOutput()).trimmed();
}

} // namespace mintaro
