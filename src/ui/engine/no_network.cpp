#include "ui/engine/no_network.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>

namespace pingwell {

namespace {

class RefusedReply : public QNetworkReply
{
public:
    RefusedReply(QNetworkAccessManager::Operation operation, const QNetworkRequest &request, QObject *parent)
        : QNetworkReply(parent)
    {
        setOperation(operation);
        setRequest(request);
        setUrl(request.url());
        setError(ContentAccessDenied, QStringLiteral("Screens do not use the network."));
        setFinished(true);
        QMetaObject::invokeMethod(
            this,
            [this] {
                emit errorOccurred(error());
                emit finished();
            },
            Qt::QueuedConnection);
    }

    void abort() override {}

protected:
    qint64 readData(char *, qint64) override { return -1; }
};

class RefusingAccessManager : public QNetworkAccessManager
{
public:
    using QNetworkAccessManager::QNetworkAccessManager;

protected:
    QNetworkReply *createRequest(Operation operation, const QNetworkRequest &request, QIODevice *) override
    {
        return new RefusedReply(operation, request, this);
    }
};

} // namespace

QNetworkAccessManager *NoNetwork::create(QObject *parent)
{
    return new RefusingAccessManager(parent);
}

} // namespace pingwell
