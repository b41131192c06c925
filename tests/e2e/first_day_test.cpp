// A person's first day with the program, from outside: nothing but keys, the desktop's notification service, the
// keyring and the service itself. Runs in a private desktop.
#include "service_process.h"
#include "support/scripted_notification_server.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <QTest>

using namespace pingwell;

namespace {

/// Runs a tool and returns what it printed.
QByteArray output(const QString &tool, const QStringList &arguments)
{
    QProcess process;
    process.start(tool, arguments);
    process.waitForFinished();
    return process.readAllStandardOutput().trimmed();
}

QByteArray storedToken()
{
    return output(QStringLiteral("secret-tool"),
                  {QStringLiteral("lookup"), QStringLiteral("service"), QStringLiteral("com.pingwell.mac.session"),
                   QStringLiteral("account"), QStringLiteral("session")});
}

/// Presses keys in the program's main window, once it is there.
void press(const QStringList &keys)
{
    QByteArray window;
    QTRY_VERIFY_WITH_TIMEOUT(
        !(window = output(QStringLiteral("xdotool"), {QStringLiteral("search"), QStringLiteral("--onlyvisible"),
                                                      QStringLiteral("--name"), QStringLiteral("^Pingwell$")}))
             .isEmpty(),
        10'000);
    const QString number = QString::fromLatin1(window.split('\n').last());
    output(QStringLiteral("xdotool"), {QStringLiteral("windowactivate"), QStringLiteral("--sync"), number});
    // A window that was not clicked takes no answer for half a second: the keys may have been meant for another one.
    QTest::qWait(600);
    output(QStringLiteral("xdotool"),
           QStringList{QStringLiteral("key"), QStringLiteral("--delay"), QStringLiteral("80")} + keys);
}

} // namespace

class FirstDayTest : public QObject
{
    Q_OBJECT

    /// The one built beside this, or one installed.
    const QString m_programPath = qEnvironmentVariable("PINGWELL_PROGRAM", QStringLiteral(PINGWELL_PROGRAM));
    ServiceProcess m_service;
    ScriptedNotificationServer m_desktop;
    QTemporaryDir m_path;
    std::unique_ptr<QProcess> m_program;

    void startProgram()
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("PATH"), m_path.path() + u':' + environment.value(QStringLiteral("PATH")));
        environment.insert(QStringLiteral("PINGWELL_PROGRAM"), m_programPath);
        m_program = std::make_unique<QProcess>();
        m_program->setProcessEnvironment(environment);
        m_program->setProcessChannelMode(QProcess::ForwardedChannels);
        m_program->start(m_programPath, {QStringLiteral("-apiBaseURL"), m_service.address()});
    }

    /// As a log-out ends it.
    void endProgram()
    {
        m_program->terminate();
        QVERIFY(m_program->waitForFinished(10'000));
        QCOMPARE(m_program->exitCode(), 0);
    }

    qsizetype dashboardCount()
    {
        qsizetype count = 0;
        const QJsonValue requests = m_service.request("GET", QStringLiteral("/test/requests")).json().value(u"data");
        for (const QJsonValue &request : requests.toArray()) {
            if (request[u"path"].toString() == u"/dashboard")
                count += request[u"count"].toInt();
        }
        return count;
    }

private slots:
    void initTestCase()
    {
        QVERIFY(QFile::link(QStringLiteral(STAND_IN_BROWSER), m_path.filePath(QStringLiteral("xdg-open"))));
        QVERIFY(m_service.start());
        QVERIFY(m_desktop.appear());
    }

    void cleanupTestCase()
    {
        if (m_program && m_program->state() != QProcess::NotRunning)
            endProgram();
    }

    void signsInThroughTheBrowser()
    {
        QVERIFY(storedToken().isEmpty());
        startProgram();
        press({QStringLiteral("Tab"), QStringLiteral("Return")});
        QTRY_VERIFY_WITH_TIMEOUT(!storedToken().isEmpty(), 15'000);
        QTRY_VERIFY_WITH_TIMEOUT(dashboardCount() > 0, 5'000);
        QVERIFY(m_desktop.shown().isEmpty());
    }

    void isAskedAndAnswersFromTheBanner()
    {
        const QByteArray ask = R"({"app":"deploy-bot","title":"Deploy build 418?","body":"All <checks> passed.",)"
                               R"("actions":["Wait","Deploy"],"expiresInMinutes":10})";
        QElapsedTimer sincePost;
        sincePost.start();
        const QString id =
            m_service.request("POST", QStringLiteral("/agent/alerts"), ask).data().value(u"id").toString();
        QTRY_COMPARE_WITH_TIMEOUT(m_desktop.shown().size(), 1, 25'000);
        qInfo("post to Notify: %lld ms, of which up to 15000 are the poll", sincePost.elapsed());

        const ShownNotification banner = m_desktop.last();
        QCOMPARE(banner.appName, QStringLiteral("Pingwell"));
        QCOMPARE(banner.summary, QStringLiteral("Deploy build 418?"));
        QCOMPARE(banner.actions.filter(QStringLiteral("answer.")).size(), 2);
        QVERIFY(banner.actions.contains(QStringLiteral("Deploy")));

        const auto waiting = m_service.send("GET", QStringLiteral("/agent/alerts/%1?wait=8").arg(id));
        QElapsedTimer sincePress;
        sincePress.start();
        m_desktop.invokeAction(banner.number, QStringLiteral("answer.1"));
        const ServiceAnswer answer = ServiceProcess::finished(waiting.get());
        qInfo("button to agent: %lld ms", sincePress.elapsed());
        QCOMPARE(answer.data().value(u"answer").toString(), QStringLiteral("Deploy"));
        QTRY_VERIFY(m_desktop.closed().contains(banner.number));
    }

    void reachesARestartedNotificationServer()
    {
        m_desktop.vanish();
        QVERIFY(m_desktop.appear());
        m_service.request("POST", QStringLiteral("/agent/alerts"), R"({"title":"Still there?"})");
        QTRY_COMPARE_WITH_TIMEOUT(m_desktop.shown().size(), 2, 25'000);
    }

    void staysSignedInOverARestart()
    {
        endProgram();
        const qsizetype before = dashboardCount();
        startProgram();
        QTRY_VERIFY_WITH_TIMEOUT(dashboardCount() > before, 10'000);
        QVERIFY(!storedToken().isEmpty());
        QCOMPARE(m_desktop.shown().size(), 2);
        endProgram();
    }

    void signsOutWithoutTheService()
    {
        m_service.kill();
        startProgram();
        // The first load fails; "Try again" has the focus before "Sign out".
        QTRY_VERIFY_WITH_TIMEOUT(
            (press({QStringLiteral("Tab"), QStringLiteral("Tab"), QStringLiteral("Return")}), storedToken().isEmpty()),
            20'000);
    }
};

QTEST_GUILESS_MAIN(FirstDayTest)
#include "first_day_test.moc"
