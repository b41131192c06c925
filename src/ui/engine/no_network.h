#pragma once

#include <QQmlNetworkAccessManagerFactory>

namespace pingwell {

/// Gives QML access managers whose every request fails at once, without a socket.
class NoNetwork : public QQmlNetworkAccessManagerFactory
{
public:
    QNetworkAccessManager *create(QObject *parent) override;
};

} // namespace pingwell
