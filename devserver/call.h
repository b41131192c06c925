#pragma once

#include "model/instant.h"

#include <QByteArray>
#include <QJsonObject>
#include <QMap>
#include <QString>
#include <QUrlQuery>

namespace pingwell::devserver {

/// One request as the handlers see it; a value, so that it may be answered later.
struct Call
{
    QString method;
    /// As received, still percent-encoded.
    QString path;
    QUrlQuery query;
    /// The parts of the path that the route names, decoded.
    QMap<QString, QString> parameters;
    /// The token of the Authorization header; empty without one.
    QString bearer;
    QByteArray rawBody;
    /// The body once it was read as a JSON object; empty without a body.
    QJsonObject body;
    Instant now{};

    [[nodiscard]] QString parameter(QStringView name) const { return parameters.value(name.toString()); }
    [[nodiscard]] QString route() const { return method + u' ' + path; }
};

} // namespace pingwell::devserver
