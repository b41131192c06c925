#pragma once

#include "api/api_client.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace pingwell {

/// Whether what is said to that server can be read on the way: plain http to anything but this machine, which is
/// "localhost", 127.0.0.0/8 and ::1.
[[nodiscard]] bool isOpenToListeners(const QUrl &baseURL);

/// The rules of a server's address, for the screens.
class ServerAddress : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    /// The host of the service that is managed for the person.
    Q_PROPERTY(QString cloudHost READ cloudHost CONSTANT)

public:
    using QObject::QObject;

    [[nodiscard]] QString cloudHost() const { return APIClient::defaultBaseURL().host(); }
    /// Whether a session can be made against what was typed.
    Q_INVOKABLE bool isUsable(const QString &text) const { return APIClient::normalizedBaseURL(text).has_value(); }
    /// Whether a session against what was typed could be read on the way; false for what is not usable.
    Q_INVOKABLE bool isOpen(const QString &text) const;
};

} // namespace pingwell
