#pragma once

#include <QHash>
#include <QTcpServer>
#include <QTcpSocket>

namespace mintaro {

/// A server of HTTP on this machine that answers each path with the bytes that it was given, and what it does not know
/// with a 404. An answer that does not say how long it is ends with the connection.
class HttpServer
{
public:
    HttpServer()
    {
        QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] { accept(); });
        if (!m_server.listen(QHostAddress::LocalHost))
            throw std::runtime_error("cannot listen");
    }

    [[nodiscard]] QString base() const { return QStringLiteral("http://127.0.0.1:%1").arg(m_server.serverPort()); }

    /// `headers`: lines, each with its end. The connection ends with the answer.
    void answer(const QString &path, const QByteArray &status, const QByteArray &headers, const QByteArray &body)
    {
        m_answers.insert(path, "HTTP/1.1 " + status + "\r\nConnection: close\r\n" + headers + "\r\n" + body);
    }
    /// The connection stays.
    void answer(const QString &path, const QByteArray &body, const QByteArray &status = "200 OK")
    {
        m_answers.insert(
            path, "HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body);
    }
    /// Does not answer that path, unless by answerLate.
    void keepSilent(const QString &path) { m_answers.insert(path, {}); }
    /// Answers who waits for that path.
    void answerLate(const QString &path, const QByteArray &body)
    {
        answer(path, body);
        send(m_waiting.take(path), path);
    }

    QStringList requested;
    QByteArray lastRequest;

private:
    void accept()
    {
        QTcpSocket *const socket = m_server.nextPendingConnection();
        QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket] {
            const QByteArray request = socket->peek(socket->bytesAvailable());
            if (!request.endsWith("\r\n\r\n"))
                return;
            lastRequest = socket->readAll();
            requested.append(QString::fromUtf8(lastRequest.split(' ').value(1)));
            send(socket, requested.last());
        });
    }

    void send(QTcpSocket *socket, const QString &path)
    {
        const QByteArray missing = "HTTP/1.1 404 Not Found\r\nContent-Length: 4\r\n\r\nnone";
        const QByteArray answer = m_answers.value(path, missing);
        if (answer.isEmpty()) {
            m_waiting.insert(path, socket);
            return;
        }
        socket->write(answer);
        if (answer.contains("Connection: close"))
            socket->disconnectFromHost();
    }

    QHash<QString, QByteArray> m_answers;
    QHash<QString, QTcpSocket *> m_waiting;
    QTcpServer m_server;
};

} // namespace mintaro
