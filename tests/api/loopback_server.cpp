#include "loopback_server.h"

#include <QTcpSocket>
#include <QTimer>

#include <memory>

namespace pingwell {

LoopbackServer::LoopbackServer()
{
    connect(&m_server, &QTcpServer::newConnection, this, [this] {
        while (QTcpSocket *socket = m_server.nextPendingConnection()) {
            connect(socket, &QTcpSocket::readyRead, this, [this, socket] { read(socket); });
            connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        }
    });
    m_server.listen(QHostAddress::LocalHost);
}

void LoopbackServer::answerWith(const QByteArray &body, const QByteArray &headers)
{
    answer("HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n" + headers + "\r\n" + body);
}

QUrl LoopbackServer::url(const QString &path) const
{
    return QUrl(QStringLiteral("http://127.0.0.1:%1%2").arg(QString::number(m_server.serverPort()), path));
}

void LoopbackServer::read(QTcpSocket *socket)
{
    const QByteArray request = socket->property("request").toByteArray() + socket->readAll();
    socket->setProperty("request", request);
    const qsizetype headEnd = request.indexOf("\r\n\r\n");
    if (headEnd < 0)
        return;
    const QByteArray head = request.first(headEnd).toLower();
    const qsizetype field = head.indexOf("content-length: ");
    const qsizetype length = field < 0 ? 0 : head.mid(field + 16, head.indexOf('\r', field + 16) - field - 16).toInt();
    if (request.size() < headEnd + 4 + length)
        return;
    socket->setProperty("request", QByteArray());
    m_requests.append(request);
    if (m_scripts.isEmpty())
        qFatal("no script for %s", request.constData());
    const Script script = m_scripts.constFirst();
    if (m_scripts.size() > 1)
        m_scripts.removeFirst();
    play(socket, script);
}

void LoopbackServer::play(QTcpSocket *socket, const Script &script)
{
    if (script.dripMilliseconds == 0) {
        socket->write(script.bytes);
        if (!script.staysOpen)
            socket->disconnectFromHost();
        return;
    }
    auto *drip = new QTimer(socket);
    const auto rest = std::make_shared<QByteArray>(script.bytes);
    connect(drip, &QTimer::timeout, socket, [socket, rest] {
        socket->write(rest->first(std::min<qsizetype>(1, rest->size())));
        *rest = rest->mid(1);
    });
    drip->start(script.dripMilliseconds);
}

} // namespace pingwell
