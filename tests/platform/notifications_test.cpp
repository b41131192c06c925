#include "platform/freedesktop_notification_center.h"
#include "support/scripted_notification_server.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

namespace {

const NotificationCategory yesNo{u"ask.Yes|No"_s,
                                 {{u"answer.0"_s, u"Yes"_s, std::nullopt}, {u"answer.1"_s, u"No"_s, std::nullopt}}};

NotificationRequest request(const QString &alertId)
{
    NotificationContent content;
    content.title = u"Ship it?"_s;
    content.subtitle = u"Deployer · #releases"_s;
    content.body = u"Version 2 is ready."_s;
    content.payload = {.alertId = alertId, .workspaceId = u"w"_s, .actions = {u"Yes"_s, u"No"_s}};
    content.categoryIdentifier = yesNo.identifier;
    return {alertId, content};
}

/// A response on one line.
QString written(const NotificationResponse &response)
{
    return u"%1 %2 [%3] %4"_s.arg(response.payload.alertId, response.actionIdentifier, response.activationToken,
                                  response.text.value_or(u"-"_s));
}

void writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
    file.setPermissions(file.permissions() | QFile::ExeOwner);
}

} // namespace

/// Needs a session bus without a notification server.
class NotificationsTest : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_home;
    std::unique_ptr<ScriptedNotificationServer> m_server;
    std::unique_ptr<FreedesktopNotificationCenter> m_center;
    QStringList m_responses;

    /// Everything sent to the server before has been dealt with, and what it sent before has arrived.
    void settle()
    {
        const auto known = m_server->shown().size();
        m_center->add(request(u"settle-%1"_s.arg(known)));
        QTRY_COMPARE(m_server->shown().size(), known + 1);
        m_server->giveActivationToken(m_server->last().number, u"settled"_s);
        m_server->invokeAction(m_server->last().number, u"default"_s);
        QTRY_VERIFY(!m_responses.isEmpty() && m_responses.last().contains(u"[settled]"_s));
        m_responses.removeLast();
    }

    uint show(const QString &alertId)
    {
        const auto known = m_server->shown().size();
        m_center->add(request(alertId));
        [&] { QTRY_COMPARE(m_server->shown().size(), known + 1); }();
        return m_server->last().number;
    }

private slots:
    void initTestCase()
    {
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_home.path()));
        qputenv("PATH", QFile::encodeName(m_home.path()));
    }

    void init()
    {
        m_responses.clear();
        m_server = std::make_unique<ScriptedNotificationServer>();
        m_center = std::make_unique<FreedesktopNotificationCenter>();
        m_center->setCategories({yesNo});
        m_center->setResponseHandler(
            [this](const NotificationResponse &response) { m_responses << written(response); });
    }

    void cleanup()
    {
        m_center.reset();
        m_server.reset();
    }

    void shows()
    {
        QVERIFY(m_server->appear());
        show(u"a"_s);
        const ShownNotification shown = m_server->last();
        QCOMPARE(shown.appName, u"Pingwell"_s);
        QCOMPARE(shown.replaced, 0u);
        QCOMPARE(shown.icon, u"com.pingwell.mac"_s);
        QCOMPARE(shown.summary, u"Ship it?"_s);
        QCOMPARE(shown.body, u"Deployer · #releases\nVersion 2 is ready."_s);
        QCOMPARE(shown.actionKeys(), QStringList({u"default"_s, u"answer.0"_s, u"answer.1"_s}));
        QCOMPARE(shown.actionLabels(), QStringList({u"Open"_s, u"Yes"_s, u"No"_s}));
        QCOMPARE(shown.hints.value(u"desktop-entry"_s).toString(), u"com.pingwell.mac"_s);
        QCOMPARE(shown.hints.value(u"resident"_s).toBool(), true);
        // As it travels: servers take nothing but a byte.
        QCOMPARE(shown.hints.value(u"urgency"_s).typeId(), static_cast<int>(QMetaType::UChar));
    }

    void responses_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("reply");
        QTest::addColumn<QStringList>("responses");
        QTest::newRow("choice") << u"answer.1"_s << QString() << QStringList{u"a answer.1 [token] -"_s};
        QTest::newRow("click") << u"default"_s << QString() << QStringList{u"a default [token] -"_s};
        QTest::newRow("more") << u"more"_s << QString() << QStringList{u"a default [token] -"_s};
        QTest::newRow("no field") << u"reply"_s << QString() << QStringList{u"a reply [token] -"_s};
        QTest::newRow("typed") << QString() << u"why not"_s << QStringList{u"a reply [token] why not"_s};
        QTest::newRow("field opened, then typed")
            << u"inline-reply"_s << u"why not"_s << QStringList{u"a reply [token] -"_s, u"a reply [] why not"_s};
        QTest::newRow("answered twice") << u"answer.0"_s << u"and more"_s << QStringList{u"a answer.0 [token] -"_s};
    }

    void responses()
    {
        QFETCH(QString, key);
        QFETCH(QString, reply);
        QVERIFY(m_server->appear());
        const uint number = show(u"a"_s);
        m_server->giveActivationToken(number, u"token"_s);
        if (!key.isEmpty())
            m_server->invokeAction(number, key);
        if (!reply.isEmpty())
            m_server->reply(number, reply);
        settle();
        QTEST(m_responses, "responses");
        QVERIFY2(m_server->closed().contains(number), "it stays on the screen after it was used");
    }

    void disappearingIsNoAnswer_data()
    {
        QTest::addColumn<uint>("reason");
        QTest::addColumn<QStringList>("laterClicks");
        QTest::newRow("expired: it may still be in a list") << 1u << QStringList{u"a default [] -"_s};
        QTest::newRow("dismissed") << 2u << QStringList();
        QTest::newRow("closed") << 3u << QStringList();
        QTest::newRow("for no reason") << 4u << QStringList{u"a default [] -"_s};
    }

    void disappearingIsNoAnswer()
    {
        QFETCH(uint, reason);
        QVERIFY(m_server->appear());
        const uint number = show(u"a"_s);
        m_server->close(number, reason);
        settle();
        QCOMPARE(m_responses, QStringList());
        m_server->invokeAction(number, u"default"_s);
        settle();
        QTEST(m_responses, "laterClicks");
    }

    void isPressedBeforeItsNumberIsKnown()
    {
        QVERIFY(m_server->appear());
        show(u"first"_s);
        m_server->holdReplies();
        const uint number = show(u"a"_s);
        m_server->giveActivationToken(number, u"token"_s);
        m_server->invokeAction(number, u"answer.0"_s);
        m_server->invokeAction(4711, u"answer.0"_s);
        m_server->releaseReplies();
        QTRY_COMPARE(m_responses, QStringList{u"a answer.0 [token] -"_s});
        settle();
        QCOMPARE(m_responses.size(), 1);
    }

    void isTakenBack()
    {
        QVERIFY(m_server->appear());
        const uint first = show(u"a"_s);
        const uint second = show(u"b"_s);
        m_center->remove({u"a"_s, u"unknown"_s});
        settle();
        QVERIFY(m_server->closed().contains(first) && !m_server->closed().contains(second));
        m_server->invokeAction(first, u"answer.0"_s);
        settle();
        QVERIFY2(m_responses.isEmpty(), "an answer to a question that was taken back");
    }

    void isTakenBackOnItsWay()
    {
        QVERIFY(m_server->appear());
        show(u"first"_s);
        m_server->holdReplies();
        const uint number = show(u"a"_s);
        m_center->remove({u"a"_s});
        m_server->releaseReplies();
        QTRY_VERIFY(m_server->closed().contains(number));
    }

    void takesEverythingBackAtTheEnd()
    {
        QVERIFY(m_server->appear());
        show(u"a"_s);
        show(u"b"_s);
        settle();
        m_center.reset();
        QTRY_COMPARE(m_server->closed().size(), 3);
    }

    void replacesItsOwnOnly()
    {
        QVERIFY(m_server->appear());
        const uint number = show(u"a"_s);
        settle();
        show(u"a"_s);
        QCOMPARE(m_server->last().replaced, number);
        settle();

        // Where nobody would see it, it comes anew.
        m_server->close(number, 1);
        settle();
        show(u"a"_s);
        QCOMPARE(m_server->last().replaced, 0u);
        QTRY_VERIFY(m_server->closed().contains(number));
        settle();

        // Another server's numbers are not ours, whatever they are.
        m_server->vanish();
        QVERIFY(m_server->appear());
        show(u"a"_s);
        QCOMPARE(m_server->last().replaced, 0u);
    }

    void twoInARowKeepTheirOrder()
    {
        QVERIFY(m_server->appear());
        show(u"first"_s);
        m_server->holdReplies();
        const uint number = show(u"a"_s);
        NotificationRequest newer = request(u"a"_s);
        newer.content.title = u"Still there?"_s;
        m_center->add(newer);
        m_server->releaseReplies();
        QTRY_COMPARE(m_server->last().summary, u"Still there?"_s);
        QCOMPARE(m_server->last().replaced, number);
    }

    void aMissingServerCostsWhatItMissed()
    {
        m_center->add(request(u"missed"_s));
        QCOMPARE(QCoro::waitFor(m_center->authorizationStatus()), AuthorizationStatus::denied);
        QVERIFY(m_server->appear());
        show(u"a"_s);
        QCOMPARE(m_server->shown().size(), 1);

        m_server->vanish();
        QVERIFY(m_server->appear());
        const uint number = show(u"b"_s);
        m_server->invokeAction(number, u"answer.0"_s);
        QTRY_COMPARE(m_responses, QStringList{u"b answer.0 [] -"_s});
    }

    void aSilentServerHoldsNobodyUp()
    {
        QVERIFY(m_server->appear());
        m_server->holdReplies();
        QElapsedTimer timer;
        timer.start();
        m_center->add(request(u"missed"_s));
        QVERIFY2(timer.elapsed() < 500, "showing a notification waited for the server");
        QCOMPARE(QCoro::waitFor(m_center->authorizationStatus()), AuthorizationStatus::other);
        m_server->releaseReplies();
        show(u"a"_s);
        QCOMPARE(m_server->shown().size(), 1);
    }

    void permission_data()
    {
        QTest::addColumn<QString>("serverName");
        QTest::addColumn<QByteArray>("gsettings");
        QTest::addColumn<QByteArray>("plasmanotifyrc");
        QTest::addColumn<AuthorizationStatus>("status");
        const QByteArray off = "[Applications][com.pingwell.mac]\nShowPopups=false\n";
        const QByteArray no = "#!/bin/sh\necho false\n";
        QTest::newRow("some server") << u"dunst"_s << no << off << AuthorizationStatus::authorized;
        QTest::newRow("GNOME, on") << u"gnome-shell"_s << QByteArray("#!/bin/sh\necho true\n") << off
                                   << AuthorizationStatus::authorized;
        QTest::newRow("GNOME, off") << u"gnome-shell"_s << no << QByteArray() << AuthorizationStatus::denied;
        QTest::newRow("GNOME, no schema")
            << u"gnome-shell"_s << QByteArray("#!/bin/sh\nexit 1\n") << off << AuthorizationStatus::authorized;
        QTest::newRow("GNOME, no tool") << u"gnome-shell"_s << QByteArray() << off << AuthorizationStatus::authorized;
        QTest::newRow("Plasma, never touched") << u"Plasma"_s << no << QByteArray() << AuthorizationStatus::authorized;
        QTest::newRow("Plasma, off") << u"Plasma"_s << QByteArray() << off << AuthorizationStatus::denied;
        QTest::newRow("Plasma, another's off")
            << u"Plasma"_s << QByteArray()
            << QByteArray("[Applications][org.other]\nShowPopups=false\n[Applications][com.pingwell.mac]\nSeen=true\n")
            << AuthorizationStatus::authorized;
    }

    void permission()
    {
        QFETCH(QByteArray, gsettings);
        QFETCH(QByteArray, plasmanotifyrc);
        QFETCH(QString, serverName);
        const QString tool = m_home.filePath(u"gsettings"_s);
        const QString file = m_home.filePath(u"plasmanotifyrc"_s);
        QFile::remove(tool);
        QFile::remove(file);
        if (!gsettings.isEmpty())
            writeFile(tool, gsettings);
        if (!plasmanotifyrc.isEmpty())
            writeFile(file, plasmanotifyrc);
        m_server->name = serverName;
        QVERIFY(m_server->appear());
        QTEST(QCoro::waitFor(m_center->authorizationStatus()), "status");
    }

    void settingsPage_data()
    {
        QTest::addColumn<QString>("desktop");
        QTest::addColumn<QString>("command");
        QTest::addColumn<bool>("canOpen");
        QTest::newRow("GNOME") << u"ubuntu:GNOME"_s << u"gnome-control-center"_s << true;
        QTest::newRow("GNOME without it") << u"GNOME"_s << QString() << false;
        QTest::newRow("Plasma 5") << u"KDE"_s << u"kcmshell5"_s << true;
        QTest::newRow("Plasma 6") << u"KDE"_s << u"systemsettings"_s << true;
        QTest::newRow("another desktop's") << u"sway"_s << u"systemsettings"_s << false;
    }

    void settingsPage()
    {
        QFETCH(QString, desktop);
        QFETCH(QString, command);
        const QString program = m_home.filePath(command);
        const QString trace = m_home.filePath(u"opened"_s);
        QFile::remove(trace);
        qputenv("XDG_CURRENT_DESKTOP", desktop.toUtf8());
        if (!command.isEmpty())
            writeFile(program, "#!/bin/sh\necho \"$@\" > '" + QFile::encodeName(trace) + "'\n");
        QTEST(m_center->canOpenSettings(), "canOpen");
        m_center->openSettings();
        if (m_center->canOpenSettings())
            QTRY_VERIFY(QFile::exists(trace));
        QFile::remove(program);
    }
};

QTEST_GUILESS_MAIN(NotificationsTest)
#include "notifications_test.moc"
