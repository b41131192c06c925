#pragma once

#include "refusal.h"

#include <QByteArray>
#include <QJsonValue>
#include <QString>

#include <functional>

class QTcpSocket;

namespace pingwell::devserver {

/// One answer, ready to be written.
struct Reply
{
    int status = 200;
    QByteArray contentType = "application/json";
    QByteArray body = {};
    /// Where the asker is sent to; empty for none.
    QByteArray location = {};
};

/// Gives the answer to one request, at once or later; nothing happens when the asker has left.
using Respond = std::function<void(const Reply &)>;

/// Success without a record.
Reply done(const QString &message = {});
/// Success with a record or list under "data", and a sentence for the person when there is one.
Reply withData(const QJsonValue &data, const QString &message = {});
/// A record that travels without an envelope.
Reply bare(const QJsonObject &record);
Reply page(int status, const QString &html);
Reply redirect(const QString &location);
Reply refused(const Refusal &refusal);

/// The status line and the headers; `length` is announced as the body's length. HTTP/1.1, RFC 9112.
QByteArray head(const Reply &reply, qsizetype length);

void write(QTcpSocket *socket, const Reply &reply);

} // namespace pingwell::devserver
