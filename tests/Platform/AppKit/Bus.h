#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QString>
#include <QVariantList>

namespace mintaro::test {

/// A connection to the test's session bus that stands for another program.
class Bus
{
public:
    explicit Bus(const QString &program);
    ~Bus();
    Bus(const Bus &) = delete;
    Bus &operator=(const Bus &) = delete;

    [[nodiscard]] QDBusConnection &connection() { return m_connection; }
    /// Calls and runs the event loop until the answer is there, since the object that is called lives in this thread.
    QDBusMessage call(const QString &service, const QString &path, const QString &interface, const QString &method,
        const QVariantList &arguments = {});

private:
    QDBusConnection m_connection;
};

} // namespace mintaro::test
