#include "Platform/AppKit/DesktopWorkspace.h"

#include "Platform/AppKit/DefaultHandler.h"
#include "Platform/AppKit/DesktopEntry.h"
#include "Platform/AppKit/KOrganizer.h"
#include "Platform/Foundation/Logger.h"

#include <QProcess>
#include <QRegularExpression>

namespace mintaro {

namespace {

const QLatin1String kPrivacySettings("x-apple.systempreferences:");
const QLatin1String kReminders("x-apple-reminderkit:");

bool isScheme(const QString &text)
{
    static const QRegularExpression kScheme(QStringLiteral("^[a-z][a-z0-9+.-]*$"));
    return kScheme.match(text).hasMatch();
}

void logError(const QString &text)
{
    Logger(QStringLiteral("Workspace")).error(text);
}

/// The first that is installed of the programs for tasks that we know how to open.
bool openTasks()
{
    if (const auto endeavour = DesktopEntry::find(QStringLiteral("org.gnome.Todo.desktop")))
        return endeavour->start();
    if (const auto evolution = DesktopEntry::find(QStringLiteral("org.gnome.Evolution.desktop")))
        return evolution->start({ QStringLiteral("task:///") });
    if (const auto korganizer = DesktopEntry::find(kOrganizerEntry()); korganizer && korganizer->start()) {
        callKOrganizer(QStringLiteral("showTodoView"));
        return true;
    }
    logError(QStringLiteral("There is no program for tasks"));
    return false;
}

} // namespace

DesktopWorkspace::DesktopWorkspace(QString calendarConfiguration)
    : m_calendarConfiguration(std::move(calendarConfiguration))
{
}

bool DesktopWorkspace::open(const URL &url, const QString &activationToken)
{
    QString address = url.absoluteString();
    if (address.startsWith(kReminders))
        return openTasks();
    if (address.startsWith(kPrivacySettings)) {
        address = m_calendarConfiguration;
    } else if (!address.contains(u':') || !isScheme(address.section(u':', 0, 0).toLower())) {
        // Without a scheme it could pass for a file or an option.
        logError(QStringLiteral("An address without a scheme is not opened"));
        return false;
    }
    QProcess opener;
    opener.setProgram(QStringLiteral("xdg-open"));
    opener.setArguments({ address });
    if (!activationToken.isEmpty()) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_ACTIVATION_TOKEN"), activationToken);
        opener.setProcessEnvironment(environment);
    }
    const bool isStarted = opener.startDetached();
    if (!isStarted)
        logError(QStringLiteral("xdg-open could not be started"));
    return isStarted;
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
    const auto handler = co_await defaultHandler(QLatin1String("x-scheme-handler/") + name);
    if (!handler) {
        co_return false;
    }
    answers->insert(name, !handler->isEmpty());
    co_return !handler->isEmpty();
}

} // namespace mintaro
