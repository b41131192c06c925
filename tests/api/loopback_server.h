#pragma once

#include <QByteArray>
#include <QList>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <QUrl>

namespace pingwell {

/// A web server of the simplest kind on this machine: it answers the n-th request it gets with the n-th script, byte
/// for byte (and every further one with the last), and then closes the connection, unless told to leave it open.
class LoopbackServer : public QObject
{
public:
    struct Script
    {
        QByteArray bytes;
        bool staysOpen = false;
        /// With an interval, the bytes go out one at a time.
        int dripMilliseconds = 0;
    };

    LoopbackServer()
    {
        connect(&m_server, &QTcpServer::newConnection, this, [this] {
            while (QTcpSocket *socket = m_server.nextPendingConnection()) {
                ++m_connectionCount;
                connect(socket, &QTcpSocket::readyRead, this, [this, socket] { read(socket); });
                connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
            }
        });
        m_server.listen(QHostAddress::LocalHost);
    }

    void answer(const QByteArray &bytes) { m_scripts.append(Script{bytes}); }
    void answer(const Script &script) { m_scripts.append(script); }
    /// 200 with this body and further header lines, each ended by CR LF.
    void answerWith(const QByteArray &body, const QByteArray &headers = {}, bool staysOpen = false)
    {
        answer(
            {"HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n" + headers + "\r\n" + body,
             staysOpen});
    }

    [[nodiscard]] QUrl url(const QString &path = QStringLiteral("/")) const
    {
        return QUrl(QStringLiteral("http://127.0.0.1:%1%2").arg(QString::number(m_server.serverPort()), path));
    }
    /// Every request so far, head and body.
    [[nodiscard]] const QList<QByteArray> &requests() const { return m_requests; }

    [[nodiscard]] int connectionCount() const { return m_connectionCount; }

private:
    void read(QTcpSocket *socket)
    {
        const QByteArray request = socket->property("request").toByteArray() + socket->readAll();
        socket->setProperty("request", request);
        const qsizetype headEnd = request.indexOf("\r\n\r\n");
        if (headEnd < 0)
            return;
        const QByteArray head = request.first(headEnd).toLower() + '\r';
        const qsizetype field = head.indexOf("content-length: ");
        const qsizetype length = field < 0 ? 0 : head.mid(field + 16, head.indexOf('\r', field) - field - 16).toInt();
        if (request.size() < headEnd + 4 + length)
            return;
        socket->setProperty("request", QByteArray());
        m_requests.append(request);
        if (m_scripts.isEmpty())
            qFatal("no script for %s", request.constData());
        play(socket, m_scripts.size() > 1 ? m_scripts.takeFirst() : m_scripts.constFirst());
    }

    static void play(QTcpSocket *socket, const Script &script)
    {
        if (script.dripMilliseconds > 0) {
            auto *drip = new QTimer(socket);
            connect(drip, &QTimer::timeout, socket, [socket, rest = script.bytes]() mutable {
                socket->write(rest.left(1));
                rest = rest.mid(1);
            });
            drip->start(script.dripMilliseconds);
            return;
        }
        socket->write(script.bytes);
        if (!script.staysOpen)
            socket->disconnectFromHost();
    }

    QTcpServer m_server;
    int m_connectionCount = 0;
    QList<Script> m_scripts;
    QList<QByteArray> m_requests;
};

} // namespace pingwell
