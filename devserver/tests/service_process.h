#pragma once

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QProcess>
#include <QString>

#include <memory>

namespace pingwell {

/// What the service answered.
struct ServiceAnswer
{
    QNetworkReply::NetworkError error = QNetworkReply::NoError;
    int status = 0;
    QByteArray body;
    QByteArray location;

    [[nodiscard]] QJsonObject json() const { return QJsonDocument::fromJson(body).object(); }
    /// The record under "data".
    [[nodiscard]] QJsonObject data() const { return json().value(QStringLiteral("data")).toObject(); }
    [[nodiscard]] QString message() const { return json().value(QStringLiteral("message")).toString(); }
};

/// The stand-in service as a process of its own, and requests to it.
class ServiceProcess
{
public:
    /// A session token that is good after every start.
    static QString token() { return QStringLiteral("token-of-the-test"); }

    ~ServiceProcess() { kill(); }

    /// Starts it with the demo's data; on a free port the first time, on the same one again later. False when it didn't
    /// come up.
    bool start();
    /// Ends it as a crash would.
    void kill();

    [[nodiscard]] QString address() const { return QStringLiteral("http://127.0.0.1:%1").arg(m_port); }

    /// A request whose answer comes later; with the good token unless another, or none, is given.
    std::unique_ptr<QNetworkReply> send(const QByteArray &method, const QString &path, const QByteArray &body = {},
                                        const QString &bearer = token());
    /// The answer, waited for.
    static ServiceAnswer finished(QNetworkReply *reply);
    ServiceAnswer request(const QByteArray &method, const QString &path, const QByteArray &body = {},
                          const QString &bearer = token());

private:
    std::unique_ptr<QProcess> m_process;
    QNetworkAccessManager m_network;
    int m_port = 0;
};

} // namespace pingwell
