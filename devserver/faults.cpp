#include "faults.h"

#include "fields.h"

#include <QRegularExpression>
#include <QTcpSocket>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace pingwell::devserver {

namespace {

bool fits(const Fault &fault, const QString &route)
{
    if (fault.route == u'*')
        return !route.contains(u" /agent/");
    QString pattern = QRegularExpression::escape(fault.route);
    pattern.replace(u"\\*"_s, u"[^/]+"_s);
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern)).match(route).hasMatch();
}

/// Ends the connection once the request's own handling is over: the server still holds the request until then.
void cutLater(QTcpSocket *socket, double seconds)
{
    QTimer::singleShot(std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::duration<double>(seconds)),
                       socket, &QTcpSocket::disconnectFromHost);
}

void writeHalf(QTcpSocket *socket, const Reply &reply)
{
    socket->write(head(reply, reply.body.size()));
    socket->write(reply.body.left(reply.body.size() / 2));
}

Reply hugeReply(qint64 bytes)
{
    return {.body = "{\"data\":\"" + QByteArray(bytes, 'x') + "\"}"};
}

Reply statusReply(const Fault &fault)
{
    Reply reply = refused({fault.status, fault.code, fault.message});
    if (fault.body)
        reply.body = *fault.body;
    reply.location = fault.location.toUtf8();
    return reply;
}

QJsonObject toJson(const Fault &fault)
{
    QJsonObject object{{u"route"_s, fault.route}, {u"mode"_s, rawValue(fault.mode)}};
    if (fault.times)
        object[u"times"_s] = *fault.times;
    return object;
}

} // namespace

bool Fault::carriesOut() const
{
    return applied || mode == FaultMode::truncated || mode == FaultMode::stall || mode == FaultMode::delay;
}

Seconds Fault::lateness() const
{
    if (mode == FaultMode::delay)
        return Seconds(seconds.value_or(1));
    return Seconds(mode == FaultMode::status ? seconds.value_or(0) : 0);
}

bool Fault::cuts() const
{
    return mode == FaultMode::drop || mode == FaultMode::truncated || mode == FaultMode::stall;
}

Fault faultFromJson(const QJsonObject &body)
{
    Fault fault;
    fault.route = requiredText(body, u"route"_s);
    const std::optional<FaultMode> mode = wordField<FaultMode>(body, u"mode"_s);
    if (!mode)
        throw badRequest(u"“mode” is missing."_s);
    fault.mode = *mode;
    fault.status = static_cast<int>(numberField(body, u"status"_s, 200, 599).value_or(fault.status));
    fault.code = textField(body, u"code"_s).value_or(u"fault"_s);
    fault.message = textField(body, u"message"_s).value_or(u"The stand-in service was told to fail."_s);
    fault.location = textField(body, u"location"_s).value_or(QString());
    if (const std::optional<QString> text = textField(body, u"body"_s))
        fault.body = text->toUtf8();
    fault.seconds = numberField(body, u"seconds"_s, 0, 3600);
    if (const std::optional<double> times = numberField(body, u"times"_s, 1, 1e6))
        fault.times = static_cast<int>(*times);
    fault.bytes = static_cast<qint64>(numberField(body, u"bytes"_s, 0, 1e9).value_or(static_cast<double>(fault.bytes)));
    fault.applied = flagField(body, u"applied"_s).value_or(false);
    return fault;
}

void FaultTable::add(const Fault &fault)
{
    m_faults.append(fault);
}

void FaultTable::clear()
{
    m_faults.clear();
}

std::optional<Fault> FaultTable::take(const QString &route)
{
    for (qsizetype i = 0; i < m_faults.size(); ++i) {
        if (!fits(m_faults[i], route))
            continue;
        Fault &fault = m_faults[i];
        if (fault.times)
            --*fault.times;
        return fault.times == 0 ? m_faults.takeAt(i) : fault;
    }
    return std::nullopt;
}

QJsonArray FaultTable::described() const
{
    QJsonArray array;
    for (const Fault &fault : m_faults)
        array.append(toJson(fault));
    return array;
}

void answerWithFault(QTcpSocket *socket, const Fault &fault, const Reply &right)
{
    switch (fault.mode) {
    case FaultMode::status:
        return write(socket, statusReply(fault));
    case FaultMode::delay:
        return write(socket, right);
    case FaultMode::malformed:
        return write(socket, {.body = fault.body.value_or("{\"data\": [")});
    case FaultMode::empty:
        return write(socket, Reply{});
    case FaultMode::huge:
        return write(socket, hugeReply(fault.bytes));
    case FaultMode::drop:
        return cutLater(socket, 0);
    case FaultMode::truncated:
        writeHalf(socket, right);
        return cutLater(socket, 0);
    case FaultMode::stall:
        writeHalf(socket, right);
        if (fault.seconds)
            cutLater(socket, *fault.seconds);
        return;
    }
}

} // namespace pingwell::devserver
