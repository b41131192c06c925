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
using namespace Qt::StringLiterals;

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
    return output(u"secret-tool"_s,
                  {u"lookup"_s, u"service"_s, u"com.pingwell.mac.session"_s, u"account"_s, u"session"_s});
}

/// Presses keys in the program's main window, once it is there.
void press(const QStringList &keys)
{
    QByteArray window;
    QTRY_VERIFY_WITH_TIMEOUT(
        !(window = output(u"xdotool"_s, {u"search"_s, u"--onlyvisible"_s, u"--name"_s, u"^Pingwell$"_s})).isEmpty(),
        10'000);
    const QString number = QString::fromLatin1(window.split('\n').last());
    output(u"xdotool"_s, {u"windowactivate"_s, u"--sync"_s, number});
    // A window that was not clicked takes no answer for half a second: the keys may have been meant for another one.
    QTest::qWait(600);
    output(u"xdotool"_s, QStringList{u"key"_s, u"--delay"_s, u"80"_s} + keys);
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
        environment.insert(u"PATH"_s, m_path.path() + u':' + environment.value(u"PATH"_s));
        environment.insert(u"PINGWELL_PROGRAM"_s, m_programPath);
        m_program = std::make_unique<QProcess>();
        m_program->setProcessEnvironment(environment);
        m_program->setProcessChannelMode(QProcess::ForwardedChannels);
        m_program->start(m_programPath, {u"-apiBaseURL"_s, m_service.address()});
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
        const QJsonValue requests = m_service.request("GET", u"/test/requests"_s).json().value(u"data");
        for (const QJsonValue &request : requests.toArray()) {
            if (request[u"path"].toString() == u"/dashboard")
                count += request[u"count"].toInt();
        }
        return count;
    }

private slots:
    void initTestCase()
    {
        QVERIFY(QFile::link(QStringLiteral(STAND_IN_BROWSER), m_path.filePath(u"xdg-open"_s)));
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
        press({u"Tab"_s, u"Return"_s});
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
        const QString id = m_service.request("POST", u"/agent/alerts"_s, ask).data().value(u"id").toString();
        QTRY_COMPARE_WITH_TIMEOUT(m_desktop.shown().size(), 1, 25'000);
        qInfo("post to Notify: %lld ms, of which up to 15000 are the poll", sincePost.elapsed());

        const ShownNotification banner = m_desktop.last();
        QCOMPARE(banner.appName, u"Pingwell"_s);
        QCOMPARE(banner.summary, u"Deploy build 418?"_s);
        QCOMPARE(banner.actions.filter(u"answer."_s).size(), 2);
        QVERIFY(banner.actions.contains(u"Deploy"_s));

        const auto waiting = m_service.send("GET", u"/agent/alerts/%1?wait=8"_s.arg(id));
        QElapsedTimer sincePress;
        sincePress.start();
        m_desktop.invokeAction(banner.number, u"answer.1"_s);
        const ServiceAnswer answer = ServiceProcess::finished(waiting.get());
        qInfo("button to agent: %lld ms", sincePress.elapsed());
        QCOMPARE(answer.data().value(u"answer").toString(), u"Deploy"_s);
        QTRY_VERIFY(m_desktop.closed().contains(banner.number));
    }

    void reachesARestartedNotificationServer()
    {
        m_desktop.vanish();
        QVERIFY(m_desktop.appear());
        m_service.request("POST", u"/agent/alerts"_s, R"({"title":"Still there?"})");
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
        QTRY_VERIFY_WITH_TIMEOUT((press({u"Tab"_s, u"Tab"_s, u"Return"_s}), storedToken().isEmpty()), 20'000);
    }
};

QTEST_GUILESS_MAIN(FirstDayTest)
#include "first_day_test.moc"
