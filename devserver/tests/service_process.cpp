#include "service_process.h"

#include <QRegularExpression>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace pingwell {

static constexpr int patienceMilliseconds = 10'000;

bool ServiceProcess::start()
{
    m_process = std::make_unique<QProcess>();
    m_process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process->start(QStringLiteral(PINGWELL_DEVSERVER),
                     {u"--port"_s, QString::number(m_port), u"--token"_s, token(), u"--seed"_s, u"demo"_s});
    while (!m_process->canReadLine()) {
        if (!m_process->waitForReadyRead(patienceMilliseconds))
            return false;
    }
    static const QRegularExpression announcement(u"^\\[devserver\\] listening on http://127\\.0\\.0\\.1:([0-9]+)$"_s);
    const QString line = QString::fromUtf8(m_process->readLine()).trimmed();
    m_port = announcement.match(line).captured(1).toInt();
    return m_port != 0;
}

void ServiceProcess::kill()
{
    if (!m_process)
        return;
    m_process->kill();
    m_process->waitForFinished(patienceMilliseconds);
    m_process.reset();
}

std::unique_ptr<QNetworkReply> ServiceProcess::send(const QByteArray &method, const QString &path,
                                                    const QByteArray &body, const QString &bearer)
{
    QNetworkRequest request(QUrl(address() + path));
    request.setTransferTimeout(patienceMilliseconds);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setHeader(QNetworkRequest::ContentTypeHeader, u"application/json"_s);
    if (!bearer.isEmpty())
        request.setRawHeader("Authorization", "Bearer " + bearer.toUtf8());
    return std::unique_ptr<QNetworkReply>(m_network.sendCustomRequest(request, method, body));
}

ServiceAnswer ServiceProcess::finished(QNetworkReply *reply)
{
    QSignalSpy finish(reply, &QNetworkReply::finished);
    if (!reply->isFinished())
        finish.wait(2 * patienceMilliseconds);
    return {reply->error(), reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(), reply->readAll(),
            reply->rawHeader("Location")};
}

ServiceAnswer ServiceProcess::request(const QByteArray &method, const QString &path, const QByteArray &body,
                                      const QString &bearer)
{
    return finished(send(method, path, body, bearer).get());
}

} // namespace pingwell
