#include "linux/session/bus_single_instance.h"

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

using Kind = BusSingleInstance::Kind;

const QString startAgain = u"--start-again"_s;
const QString liveTest = u"--live-test"_s;
const QString callback = u"pingwell://auth/callback?code=a%20b&state=c"_s;
const QVariant callbackURLs = QVariant::fromValue(QList<QUrl>{QUrl(callback)});

/// This same program as a later start of the application: prints its role and how long the claim took.
int runLaterStart(QStringList texts)
{
    const Kind kind = texts.removeAll(liveTest) > 0 ? Kind::liveTest : Kind::own;
    const QList<QUrl> urls(texts.begin(), texts.end());
    BusSingleInstance instance(kind);
    QElapsedTimer timer;
    timer.start();
    const bool primary = instance.claim(urls) == SingleInstance::Role::primary;
    std::printf("%s %lld\n", primary ? "primary" : "handedOver", static_cast<long long>(timer.elapsed()));
    return 0;
}

/// What a later start printed; `running` keeps this process serving meanwhile.
QStringList laterStart(const QStringList &texts, const QHash<QString, QString> &variables = {}, bool running = true)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (auto variable = variables.cbegin(); variable != variables.cend(); ++variable)
        environment.insert(variable.key(), variable.value());
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(), QStringList{startAgain} + texts);
    if (!running)
        process.waitForFinished();
    else if (!QTest::qWaitFor([&] { return process.state() == QProcess::NotRunning; }, 10'000))
        return {};
    return QString::fromUtf8(process.readAllStandardOutput()).simplified().split(u' ');
}

} // namespace

class BusSingleInstanceTest : public QObject
{
    Q_OBJECT

public:
    explicit BusSingleInstanceTest(std::unique_ptr<BusSingleInstance> instance)
        : m_instance(std::move(instance))
    {
    }

private:
    std::unique_ptr<BusSingleInstance> m_instance;

private slots:
    void laterStartIsSeenAndHandsItsURLsOver()
    {
        QSignalSpy opened(m_instance.get(), &SingleInstance::opened);
        QSignalSpy activated(m_instance.get(), &SingleInstance::activated);
        const QHash<QString, QString> x11{{u"DESKTOP_STARTUP_ID"_s, u"older"_s}};
        const QHash<QString, QString> both{{u"XDG_ACTIVATION_TOKEN"_s, u"token"_s},
                                           {u"DESKTOP_STARTUP_ID"_s, u"older"_s}};
        QCOMPARE(laterStart({}, both).first(), u"handedOver"_s);
        QCOMPARE(laterStart({}, x11).first(), u"handedOver"_s);
        QCOMPARE(laterStart({callback, u"https://example.com/"_s}, both).first(), u"handedOver"_s);
        QCOMPARE(activated, (QList<QVariantList>{{QByteArray("token")}, {QByteArray("older")}}));
        QCOMPARE(opened, (QList<QVariantList>{{callbackURLs, QByteArray("token")}}));
    }

    void takesNothingButURLsOfItsOwn()
    {
        QSignalSpy opened(m_instance.get(), &SingleInstance::opened);
        // The desktop may have decoded the last one in part.
        for (const QString &text :
             {u"https://auth/callback?code=1"_s, u"auth/callback"_s, u"pingwell://[::1"_s, QString(),
              QString(callback + QString(4096, u'x')), QString(callback + QString(2000, u'é')),
              u"pingwell://auth/callback?code=a b&state=c"_s}) {
            QDBusMessage message = QDBusMessage::createMethodCall(u"com.pingwell.mac"_s, u"/com/pingwell/mac"_s,
                                                                  u"org.freedesktop.Application"_s, u"Open"_s);
            message.setArguments({QStringList{text}, QVariantMap()});
            QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"desktop"_s).asyncCall(message);
        }
        QTRY_COMPARE(opened.size(), 1);
        QCOMPARE(opened.first().first(), callbackURLs);
    }

    void laterStartDoesNotWaitForABusyProgram()
    {
        QSignalSpy opened(m_instance.get(), &SingleInstance::opened);
        const QStringList start = laterStart({callback}, {}, false);
        QCOMPARE(start.first(), u"handedOver"_s);
        QVERIFY2(start.value(1).toInt() <= 250, qPrintable(start.value(1)));
        QVERIFY(opened.isEmpty());
        QTRY_COMPARE(opened.size(), 1);
    }

    void aLiveTestNeverMeetsThePersonsProgram()
    {
        QSignalSpy activated(m_instance.get(), &SingleInstance::activated);
        QCOMPARE(laterStart({liveTest}).first(), u"primary"_s);
        QVERIFY(activated.isEmpty());

        m_instance = std::make_unique<BusSingleInstance>(Kind::liveTest);
        QCOMPARE(m_instance->claim({}), SingleInstance::Role::primary);
        QSignalSpy opened(m_instance.get(), &SingleInstance::opened);
        QCOMPARE(laterStart({callback}).first(), u"handedOver"_s);
        QCOMPARE(opened.size(), 1);
        QCOMPARE(laterStart({liveTest}).first(), u"handedOver"_s);
        QCOMPARE(laterStart({}).first(), u"primary"_s);
        QCOMPARE(opened.size(), 1);
    }
};

int main(int argc, char **argv)
{
    std::unique_ptr<BusSingleInstance> instance;
    {
        // As the program does it: the place is claimed before the graphical application object exists.
        const QCoreApplication early(argc, argv);
        const QStringList arguments = QCoreApplication::arguments();
        if (arguments.value(1) == startAgain)
            return runLaterStart(arguments.sliced(2));
        instance = std::make_unique<BusSingleInstance>(Kind::own);
        if (instance->claim({}) != SingleInstance::Role::primary)
            return 1;
    }
    const QCoreApplication application(argc, argv);
    BusSingleInstanceTest test(std::move(instance));
    return QTest::qExec(&test, argc, argv);
}

#include "bus_single_instance_test.moc"
