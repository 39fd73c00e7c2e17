#pragma once

#include <QObject>
#include <QString>

#include <functional>
#include <memory>

namespace mintaro {

/// Tells observers of named events within the process. Posting may be done from any thread; observers are called on the
/// thread that the centre lives on, which is the main one.
class NotificationCenter : public QObject
{
    Q_OBJECT

public:
    /// Ends the observation when it is destroyed.
    class Observation;

    using QObject::QObject;

    [[nodiscard]] std::unique_ptr<Observation> addObserver(const QString &name, std::function<void()> handler);
    void post(const QString &name);

Q_SIGNALS:
    void posted(const QString &name, QPrivateSignal);
};

class NotificationCenter::Observation
{
public:
    explicit Observation(QMetaObject::Connection connection)
        : m_connection(std::move(connection))
    {
    }
    ~Observation() { QObject::disconnect(m_connection); }
    Observation(const Observation &) = delete;
    Observation &operator=(const Observation &) = delete;

private:
    QMetaObject::Connection m_connection;
};

} // namespace mintaro
