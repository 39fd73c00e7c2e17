#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

#include <chrono>

namespace mintaro {

/// The program as others on the session bus know it: the one owner of the name kSubsystem, with
/// org.freedesktop.Application (Desktop Entry Specification, D-Bus Activation) at the path that belongs to it. For one
/// thread, which runs an event loop.
class SingleInstance : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    /// What an instance that runs can be asked for.
    enum class Request { Show, Toggle, Settings };
    enum class Answer { Done, NotRunning, None };
    enum class Start {
        First, ///< nobody else runs, or there is no session bus to find out
        Second, ///< another one runs and has got the request: nothing is left to do here
        Stuck, ///< another one runs and does not answer
    };

    /// For an instance that is starting up or opening something, not too long for who waits at a keyboard.
    static constexpr std::chrono::seconds kPatience { 3 };

    explicit SingleInstance(QDBusConnection bus, std::chrono::milliseconds patience = kPatience);
    ~SingleInstance() override;

    /// Takes the name, or passes the request on to who has it. What is asked of a first instance comes as a signal once
    /// the event loop runs.
    [[nodiscard]] Start start(Request request);

    /// Asks the instance that runs, and waits for its answer, but starts none. Without a session bus none runs.
    [[nodiscard]] static Answer ask(
        Request request, const QDBusConnection &bus, std::chrono::milliseconds patience = kPatience);

public Q_SLOTS:
    Q_SCRIPTABLE void Activate(const QVariantMap &platformData);
    /// There is nothing of the user's that could be opened: the same as Activate.
    Q_SCRIPTABLE void Open(const QStringList &uris, const QVariantMap &platformData);
    /// "toggle" or "settings"; any other is answered by an error.
    Q_SCRIPTABLE void ActivateAction(
        const QString &action, const QVariantList &parameter, const QVariantMap &platformData);

Q_SIGNALS:
    /// All come after the caller has had its answer.
    void showRequested();
    void toggleRequested();
    void settingsRequested();

private:
    [[nodiscard]] bool takeName();

    QDBusConnection m_bus;
    const std::chrono::milliseconds m_patience;
};

} // namespace mintaro
