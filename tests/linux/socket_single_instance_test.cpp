#include "linux/session/socket_single_instance.h"

#include <QFile>
#include <QLocalSocket>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

namespace {

constexpr auto primary = SingleInstance::Role::primary;
constexpr auto handedOver = SingleInstance::Role::handedOver;
const QList<QUrl> callback{QUrl(u"pingwell://auth/callback?code=a%20b"_s)};

QByteArray opening(const QByteArray &url)
{
    return "{\"urls\":[\"" + url + "\"]}";
}

} // namespace

class SocketSingleInstanceTest : public QObject
{
    Q_OBJECT

public:
    SocketSingleInstanceTest(QString folder, SocketSingleInstance *instance)
        : m_folder(std::move(folder))
        , m_instance(instance)
    {
    }

private:
    QString m_folder;
    SocketSingleInstance *m_instance;

    SingleInstance::Role startAgain(const QList<QUrl> &urls = {}) { return SocketSingleInstance(m_folder).claim(urls); }
    QString socket() const { return m_folder + u"/com.pingwell.mac.socket"_s; }

private slots:
    // First: the program does not serve yet.
    void aStartHandsOverToAProgramThatIsStillStarting()
    {
        qputenv("XDG_ACTIVATION_TOKEN", "token");
        QSignalSpy opened(m_instance, &SingleInstance::opened);
        QSignalSpy activated(m_instance, &SingleInstance::activated);
        QCOMPARE(startAgain(), handedOver);
        QCOMPARE(startAgain(callback + QList<QUrl>{QUrl(u"https://example.com/"_s)}), handedOver);
        m_instance->serve();
        QTRY_COMPARE(opened, (QList<QVariantList>{{QVariant::fromValue(callback), QByteArray("token")}}));
        QCOMPARE(activated, (QList<QVariantList>{{QByteArray("token")}}));
        QCOMPARE(QFile::permissions(socket()) & (QFile::ReadGroup | QFile::ReadOther | QFile::WriteOther),
                 QFile::Permissions());
    }

    void takesNothingButWhatAStartSays()
    {
        QSignalSpy opened(m_instance, &SingleInstance::opened);
        QSignalSpy activated(m_instance, &SingleInstance::activated);
        for (const QByteArray &message : QByteArrayList{{},
                                                        "[]",
                                                        "nonsense",
                                                        opening("https://a/"),
                                                        opening("pingwell://[::1"),
                                                        opening("pingwell://auth/" + QByteArray(5000, 'x'))}) {
            QLocalSocket peer;
            peer.connectToServer(socket());
            peer.write(message);
            peer.disconnectFromServer();
        }
        QCOMPARE(startAgain(callback), handedOver);
        QTRY_COMPARE(opened.size(), 1);
        QVERIFY(activated.isEmpty());
    }

    void thePlaceIsFreeAfterAnEndOfAnyKind()
    {
        const QTemporaryDir folder;
        m_folder = folder.path();
        // What a killed program leaves.
        for (const QString &name : {socket(), QString(m_folder + u"/com.pingwell.mac.lock"_s)}) {
            QFile file(name);
            QVERIFY(file.open(QIODevice::WriteOnly));
        }
        for (int run = 0; run < 2; ++run) {
            SocketSingleInstance next(m_folder);
            QCOMPARE(next.claim({}), primary);
            QCOMPARE(startAgain(), handedOver);
        }
        QVERIFY(!QFile::exists(socket()));
        m_folder.clear();
        QCOMPARE(startAgain(), primary);
    }
};

int main(int argc, char **argv)
{
    const QTemporaryDir folder;
    SocketSingleInstance instance(folder.path());
    {
        // As the program does it: the place is claimed before the graphical application object exists.
        const QCoreApplication early(argc, argv);
        if (instance.claim({}) != primary)
            return 1;
    }
    const QCoreApplication application(argc, argv);
    SocketSingleInstanceTest test(folder.path(), &instance);
    return QTest::qExec(&test, argc, argv);
}

#include "socket_single_instance_test.moc"
