#include "Platform/AppKit/DesktopWorkspace.h"

#include "Platform/Foundation/Logger.h"

#include <QCoroProcess>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QUrl>

#include <chrono>

namespace mintaro {

using namespace std::chrono_literals;

namespace {

constexpr auto kAnswerTime = 10s;
const QLatin1String kPrivacySettings("x-apple.systempreferences:");

bool isScheme(const QString &text)
{
    static const QRegularExpression kScheme(QStringLiteral("^[a-z][a-z0-9+.-]*$"));
    return kScheme.match(text).hasMatch();
}

void logError(const QString &text)
{
    Logger(QStringLiteral("Workspace")).error(text);
}

} // namespace

DesktopWorkspace::DesktopWorkspace(QString calendarConfiguration)
    : m_calendarConfiguration(std::move(calendarConfiguration))
{
}

void DesktopWorkspace::open(const URL &url)
{
    QString address = url.absoluteString();
    if (address.startsWith(kPrivacySettings)) {
        address = m_calendarConfiguration;
    } else if (!address.contains(u':') || !isScheme(address.section(u':', 0, 0).toLower())) {
        // Without a scheme it could pass for a file or an option.
        logError(QStringLiteral("An address without a scheme is not opened"));
        return;
    }
    if (!QProcess::startDetached(QStringLiteral("xdg-open"), { address }))
        logError(QStringLiteral("xdg-open could not be started"));
}

QCoro::Task<bool> DesktopWorkspace::hasHandler(QString scheme)
{
    const QString name = scheme.toLower();
    if (!isScheme(name)) {
        co_return false;
    }
    const auto answers = m_answers;
    if (const auto known = answers->constFind(name); known != answers->constEnd()) {
        co_return *known;
    }
    const QString tool = QStandardPaths::findExecutable(QStringLiteral("xdg-mime"));
    if (tool.isEmpty()) { // QCoro would wait its whole time for the start of a program that is not there
        logError(QStringLiteral("xdg-mime is missing"));
        co_return false;
    }
    QProcess query;
    query.setStandardErrorFile(QProcess::nullDevice());
    query.start(
        tool, { QStringLiteral("query"), QStringLiteral("default"), QLatin1String("x-scheme-handler/") + name });
    if (query.state() != QProcess::NotRunning) {
        co_await qCoro(query).waitForFinished(kAnswerTime);
    }
    if (query.state() != QProcess::NotRunning) {
        logError(QStringLiteral("xdg-mime does not answer"));
        query.kill();
        co_return false;
    }
    const bool found = !query.readAllStandardOutput().trimmed().isEmpty();
    answers->insert(name, found);
    co_return found;
}

} // namespace mintaro
