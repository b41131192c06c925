#include "platform/bus_single_instance.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QElapsedTimer>
#include <QProcess>
#include <QSignalSpy>
#include <QTest>

#include <cstdio>

using namespace pingwell;
using namespace Qt::StringLiterals;

namespace {

const QString startAgain = u"--start-again"_s;
const QString callback = u"pingwell://auth/callback?code=a%20b&state=c"_s;

/// This same program as a later start of the application: prints its role and how long the claim took.
int runLaterStart(const QStringList &texts)
{
    QList<QUrl> urls;
    for (const QString &text : texts)
        urls << QUrl(text);
    BusSingleInstance instance;
    QElapsedTimer timer;
    timer.start();
    const bool primary = instance.claim(urls) == SingleInstance::Role::primary;
    std::printf("%s %lld\n", primary ? "primary" : "handedOver", static_cast<long long>(timer.elapsed()));
    return 0;
}

struct LaterStart
{
    QString role;
    int milliseconds = 0;
};

class LaterProcess
{
public:
    explicit LaterProcess(const QStringList &texts, const QHash<QString, QString> &variables = {})
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (auto variable = variables.cbegin(); variable != variables.cend(); ++variable)
            environment.insert(variable.key(), variable.value());
        m_process.setProcessEnvironment(environment);
        m_process.start(QCoreApplication::applicationFilePath(), QStringList{startAgain} + texts);
    }

    /// Waits for its end; `running` keeps this process serving meanwhile.
    LaterStart finished(bool running = true)
    {
        if (running) {
            const bool ended = QTest::qWaitFor([this] { return m_process.state() == QProcess::NotRunning; }, 10'000);
            if (!ended)
                return {};
        } else {
            m_process.waitForFinished();
        }
        const QStringList words = QString::fromUtf8(m_process.readAllStandardOutput()).split(u' ');
        return {.role = words.value(0), .milliseconds = words.value(1).trimmed().toInt()};
    }

private:
    QProcess m_process;
};

void call(const QString &method, const QVariantList &arguments)
{
    QDBusMessage message = QDBusMessage::createMethodCall(u"com.pingwell.mac"_s, u"/com/pingwell/mac"_s,
                                                          u"org.freedesktop.Application"_s, method);
    message.setArguments(arguments);
    QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"desktop"_s).asyncCall(message);
}

} // namespace

class BusSingleInstanceTest : public QObject
{
    Q_OBJECT

public:
    explicit BusSingleInstanceTest(BusSingleInstance *instance)
        : m_instance(instance)
    {
    }

private slots:
    void laterStartIsSeen();
    void laterStartHandsItsURLsOver();
    void dropsWhatIsNoURLOfItsOwn_data();
    void dropsWhatIsNoURLOfItsOwn();
    void readsAURLThatTheDesktopDecodedInPart();
    void laterStartDoesNotWaitForABusyProgram();
    void withoutASessionBusEveryStartIsPrimary();

private:
    BusSingleInstance *m_instance;
};

void BusSingleInstanceTest::laterStartIsSeen()
{
    QSignalSpy activated(m_instance, &SingleInstance::activated);
    LaterProcess later({}, {{u"XDG_ACTIVATION_TOKEN"_s, u"token"_s}, {u"DESKTOP_STARTUP_ID"_s, u"older"_s}});
    QCOMPARE(later.finished().role, u"handedOver"_s);
    LaterProcess x11({}, {{u"DESKTOP_STARTUP_ID"_s, u"older"_s}});
    QCOMPARE(x11.finished().role, u"handedOver"_s);
    QCOMPARE(activated, (QList<QVariantList>{{QByteArray("token")}, {QByteArray("older")}}));
}

void BusSingleInstanceTest::laterStartHandsItsURLsOver()
{
    QSignalSpy opened(m_instance, &SingleInstance::opened);
    QSignalSpy activated(m_instance, &SingleInstance::activated);
    LaterProcess later({callback, u"https://example.com/"_s}, {{u"XDG_ACTIVATION_TOKEN"_s, u"token"_s}});
    QCOMPARE(later.finished().role, u"handedOver"_s);
    QCOMPARE(opened.size(), 1);
    QCOMPARE(opened.first().at(0).value<QList<QUrl>>(), QList<QUrl>{QUrl(callback)});
    QCOMPARE(opened.first().at(1).toByteArray(), "token");
    QVERIFY(activated.isEmpty());
}

void BusSingleInstanceTest::dropsWhatIsNoURLOfItsOwn_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("other scheme") << u"https://auth/callback?code=1"_s;
    QTest::newRow("a file") << u"file:///etc/passwd"_s;
    QTest::newRow("no scheme") << u"auth/callback"_s;
    QTest::newRow("malformed") << u"pingwell://[::1"_s;
    QTest::newRow("empty") << QString();
    QTest::newRow("too long") << callback + QString(4096, u'x');
    QTest::newRow("too long once encoded") << callback + QString(2000, u'é');
}

void BusSingleInstanceTest::dropsWhatIsNoURLOfItsOwn()
{
    QFETCH(QString, text);
    QSignalSpy opened(m_instance, &SingleInstance::opened);
    call(u"Open"_s, {QStringList{text}, QVariantMap()});
    call(u"Open"_s, {QStringList{text, callback}, QVariantMap()});
    QTRY_COMPARE(opened.size(), 1);
    QCOMPARE(opened.first().at(0).value<QList<QUrl>>(), QList<QUrl>{QUrl(callback)});
}

void BusSingleInstanceTest::readsAURLThatTheDesktopDecodedInPart()
{
    QSignalSpy opened(m_instance, &SingleInstance::opened);
    call(u"Open"_s, {QStringList{u"pingwell://auth/callback?code=a b&state=c"_s}, QVariantMap()});
    QTRY_COMPARE(opened.size(), 1);
    QCOMPARE(opened.first().at(0).value<QList<QUrl>>(), QList<QUrl>{QUrl(callback)});
}

void BusSingleInstanceTest::laterStartDoesNotWaitForABusyProgram()
{
    QSignalSpy opened(m_instance, &SingleInstance::opened);
    LaterProcess later({callback});
    const LaterStart start = later.finished(false);
    QCOMPARE(start.role, u"handedOver"_s);
    QVERIFY2(start.milliseconds <= 250, qPrintable(QString::number(start.milliseconds)));
    QVERIFY(opened.isEmpty());
    QTRY_COMPARE(opened.size(), 1);
}

void BusSingleInstanceTest::withoutASessionBusEveryStartIsPrimary()
{
    LaterProcess later({callback}, {{u"DBUS_SESSION_BUS_ADDRESS"_s, u"unix:path=/nonexistent"_s}});
    QCOMPARE(later.finished().role, u"primary"_s);
}

int main(int argc, char **argv)
{
    std::unique_ptr<BusSingleInstance> instance;
    {
        // As the program does it: the place is claimed before the graphical application object exists.
        const QCoreApplication early(argc, argv);
        const QStringList arguments = QCoreApplication::arguments();
        if (arguments.value(1) == startAgain)
            return runLaterStart(arguments.sliced(2));
        instance = std::make_unique<BusSingleInstance>();
        if (instance->claim({}) != SingleInstance::Role::primary)
            return 1;
    }
    const QCoreApplication application(argc, argv);
    BusSingleInstanceTest test(instance.get());
    return QTest::qExec(&test, argc, argv);
}

#include "bus_single_instance_test.moc"
