// F-poll: a status item, and a small JSON document fetched every 15 seconds from the address given as the argument.
#include <QApplication>
#include <QJsonDocument>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QPixmap>
#include <QSystemTrayIcon>
#include <QTimer>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QPixmap pixmap(22, 22);
    pixmap.fill(Qt::black);
    QSystemTrayIcon item{QIcon(pixmap)};
    item.show();

    const QUrl url(QApplication::arguments().value(1));
    QNetworkAccessManager network;
    const auto fetch = [&network, &url] {
        QNetworkReply *reply = network.get(QNetworkRequest(url));
        QObject::connect(reply, &QNetworkReply::finished, reply, [reply] {
            QJsonDocument::fromJson(reply->readAll());
            reply->deleteLater();
        });
    };
    fetch();
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, fetch);
    timer.start(15'000);
    return QApplication::exec();
}
