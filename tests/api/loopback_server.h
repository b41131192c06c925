#pragma once

#include <QByteArray>
#include <QList>
#include <QTcpServer>
#include <QUrl>

namespace pingwell {

/// A web server of the simplest kind on this machine: it answers the n-th request it gets with the n-th script, byte
/// for byte, and then closes the connection, unless told to leave it open.
class LoopbackServer : public QObject
{
    Q_OBJECT

public:
    struct Script
    {
        QByteArray bytes;
        bool staysOpen = false;
        /// With an interval, the bytes go out one at a time.
        int dripMilliseconds = 0;
    };

    LoopbackServer();

    void answer(const QByteArray &bytes) { m_scripts.append(Script{bytes}); }
    void answer(const Script &script) { m_scripts.append(script); }
    /// 200 with this body and further header lines, each ended by CR LF.
    void answerWith(const QByteArray &body, const QByteArray &headers = {});

    [[nodiscard]] QUrl url(const QString &path = QStringLiteral("/")) const;
    /// Every request so far, head and body.
    [[nodiscard]] const QList<QByteArray> &requests() const { return m_requests; }

private:
    void read(QTcpSocket *socket);
    void play(QTcpSocket *socket, const Script &script);

    QTcpServer m_server;
    QList<Script> m_scripts;
    QList<QByteArray> m_requests;
};

} // namespace pingwell
