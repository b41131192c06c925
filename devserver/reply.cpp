#include "reply.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QTcpSocket>

using namespace Qt::StringLiterals;

namespace pingwell::devserver {

namespace {

QByteArray encoded(const QJsonObject &object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

} // namespace

Reply done(const QString &message)
{
    QJsonObject envelope{{u"success"_s, true}};
    if (!message.isEmpty())
        envelope[u"message"_s] = message;
    return {.body = encoded(envelope)};
}

Reply withData(const QJsonValue &data, const QString &message)
{
    QJsonObject envelope{{u"success"_s, true}, {u"data"_s, data}};
    if (!message.isEmpty())
        envelope[u"message"_s] = message;
    return {.body = encoded(envelope)};
}

Reply bare(const QJsonObject &record)
{
    return {.body = encoded(record)};
}

Reply page(int status, const QString &html)
{
    return {.status = status, .contentType = "text/html; charset=utf-8", .body = html.toUtf8()};
}

Reply redirect(const QString &location)
{
    return {.status = 302, .contentType = "text/plain; charset=utf-8", .location = location.toUtf8()};
}

Reply refused(const Refusal &refusal)
{
    return {.status = refusal.status,
            .body = encoded({{u"success"_s, false}, {u"code"_s, refusal.code}, {u"message"_s, refusal.message}})};
}

QByteArray head(const Reply &reply, qsizetype length)
{
    // Without a reason phrase, which nobody reads.
    QByteArray text = "HTTP/1.1 " + QByteArray::number(reply.status) + " \r\n";
    text += "Content-Type: " + reply.contentType + "\r\n";
    text += "Content-Length: " + QByteArray::number(length) + "\r\n";
    text += "Cache-Control: no-store\r\n";
    if (!reply.location.isEmpty())
        text += "Location: " + reply.location + "\r\n";
    return text + "\r\n";
}

void write(QTcpSocket *socket, const Reply &reply)
{
    socket->write(head(reply, reply.body.size()));
    socket->write(reply.body);
}

} // namespace pingwell::devserver
