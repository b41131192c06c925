#include "desktop/preference_keys.h"
#include "linux/notifications/freedesktop_notification_center.h"
#include "support/memory_preferences.h"
#include "support/scripted_notification_server.h"

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
    content.payload = {.alertId = alertId, .workspaceId = u"w"_s, .actions = {u"Yes"_s, u"No"_s}};
    content.category = yesNo;
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
        const uint number = show(u"settle-%1"_s.arg(m_server->shown().size()));
        m_server->giveActivationToken(number, u"settled"_s);
        m_server->invokeAction(number, u"default"_s);
        QTRY_VERIFY(!m_responses.isEmpty() && m_responses.last().contains(u"[settled]"_s));
        m_responses.removeLast();
    }

    uint show(const QString &alertId) { return show(request(alertId)); }

    uint show(const NotificationRequest &request)
    {
        const auto known = m_server->shown().size();
        m_center->add(request);
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
        m_center.reset();
        m_responses.clear();
        m_server = std::make_unique<ScriptedNotificationServer>();
        m_center = std::make_unique<FreedesktopNotificationCenter>();
        m_center->setResponseHandler(
            [this](const NotificationResponse &response) { m_responses << written(response); });
        QVERIFY(m_server->appear());
    }

    void shows()
    {
        show(u"a"_s);
        const ShownNotification shown = m_server->last();
        QCOMPARE(shown.replaced, 0u);
        QCOMPARE(shown.summary, u"Ship it?"_s);
        QCOMPARE(shown.body, u"Deployer · #releases"_s);
        QCOMPARE(shown.actions,
                 (QStringList{u"default"_s, u"Open"_s, u"answer.0"_s, u"Yes"_s, u"answer.1"_s, u"No"_s}));
        QCOMPARE(shown.hints.value(u"desktop-entry"_s).toString(), u"com.pingwell.mac"_s);
        QCOMPARE(shown.hints.value(u"resident"_s).toBool(), true);
        // As it travels: servers take nothing but a byte.
        QCOMPARE(shown.hints.value(u"urgency"_s).typeId(), static_cast<int>(QMetaType::UChar));

        // Two questions that say the same would become one; each keeps what it says.
        show(u"b"_s);
        QCOMPARE(m_server->last().body, u"Deployer · #releases\nAnother question in the same words (2)"_s);
        NotificationRequest notice = request(u"notice"_s);
        notice.content.category.reset();
        NotificationRequest other = request(u"b"_s);
        other.content.title = u"Now?"_s;
        for (const NotificationRequest &same : {request(u"a"_s), notice, other}) {
            show(same);
            QCOMPARE(m_server->last().body, shown.body);
        }
        m_center->remove({u"a"_s});
        show(u"c"_s);
        QCOMPARE(m_server->last().body, shown.body);
    }

    void responses()
    {
        const struct
        {
            QString key;
            QString reply;
            QStringList responses;
        } cases[] = {{u"answer.1"_s, {}, {u"a answer.1 [token] -"_s}},
                     {u"answer.0"_s, u"and more"_s, {u"a answer.0 [token] -"_s}},
                     // Neither offered: the banner stays usable.
                     {u"answer.2"_s, u"no field"_s, {}},
                     {u"the server's own"_s, {}, {}}};
        for (const auto &row : cases) {
            m_responses.clear();
            const uint number = show(u"a"_s);
            m_server->giveActivationToken(number, u"token"_s);
            m_server->invokeAction(number, row.key);
            m_server->invokeAction(number, row.key);
            if (!row.reply.isEmpty())
                m_server->reply(number, row.reply);
            settle();
            QCOMPARE(m_responses, row.responses);
            QCOMPARE(m_server->closed().contains(number), !row.responses.isEmpty());
        }
    }

    void aFieldThatOpensKeepsItsBanner()
    {
        m_server->vanish();
        m_server->capabilities << u"inline-reply"_s;
        QVERIFY(m_server->appear());
        NotificationRequest asked = request(u"a"_s);
        asked.content.category->actions = {{u"reply"_s, u"Reply"_s, NotificationTextInput{}}};
        const uint number = show(asked);
        m_server->invokeAction(number, u"inline-reply"_s);
        settle();
        QVERIFY(m_responses.isEmpty() && !m_server->closed().contains(number));
        m_server->reply(number, u"why not"_s);
        settle();
        QCOMPARE(m_responses, QStringList{u"a reply [] why not"_s});
        QVERIFY(m_server->closed().contains(number));
    }

    void disappearingIsNoAnswer()
    {
        // Expired, or for no reason, it may still be in a list; dismissed or closed it is gone.
        for (const uint reason : {1u, 2u, 3u, 4u}) {
            m_responses.clear();
            const uint number = show(u"a%1"_s.arg(reason));
            m_server->close(number, reason);
            settle();
            QCOMPARE(m_responses, QStringList());
            m_server->invokeAction(number, u"default"_s);
            settle();
            QCOMPARE(m_responses.size(), reason == 1 || reason == 4 ? 1 : 0);
        }
    }

    void isPressedBeforeItsNumberIsKnown()
    {
        show(u"first"_s);
        m_server->holdReplies();
        const uint number = show(u"a"_s);
        m_server->giveActivationToken(number, u"token"_s);
        m_server->invokeAction(number, u"answer.0"_s);
        m_server->invokeAction(4711, u"answer.0"_s);
        m_server->releaseReplies();
        settle();
        QCOMPARE(m_responses, QStringList{u"a answer.0 [token] -"_s});
    }

    void isTakenBack()
    {
        const uint first = show(u"a"_s);
        const uint second = show(u"b"_s);
        m_center->remove({u"a"_s, u"unknown"_s});
        settle();
        QVERIFY(m_server->closed().contains(first) && !m_server->closed().contains(second));
        m_server->invokeAction(first, u"answer.0"_s);
        settle();
        QVERIFY2(m_responses.isEmpty(), "an answer to a question that was taken back");

        m_server->holdReplies();
        const uint onItsWay = show(u"c"_s);
        m_center->remove({u"c"_s});
        m_server->releaseReplies();
        QTRY_VERIFY(m_server->closed().contains(onItsWay));

        m_center.reset();
        QTRY_VERIFY2(m_server->closed().contains(second), "the program has ended");
    }

    void anAnswerThatCrossesItsEndIsHeard()
    {
        const uint number = show(u"a"_s);
        settle();
        m_center->remove({u"a"_s});
        m_server->invokeAction(number, u"answer.0"_s);
        settle();
        QCOMPARE(m_responses, QStringList{u"a answer.0 [] -"_s});
    }

    void oneTooManyIsClosedNotJustForgotten()
    {
        const uint first = show(u"0"_s);
        // No more at a time than a bus lets wait for a reply.
        for (int count = 1; count < 256; ++count) {
            m_center->add(request(QString::number(count)));
            if (count % 64 == 63)
                QTRY_COMPARE(m_server->shown().size(), count + 1);
        }
        QVERIFY(m_server->closed().isEmpty());
        settle();
        QVERIFY(m_server->closed().contains(first));
    }

    void takesBackWhatAKilledRunLeft()
    {
        const auto preferences = std::make_shared<MemoryPreferences>();
        const auto kept = [&] {
            return preferences->strings(preference_keys::shownNotifications).value_or(QStringList());
        };
        m_center->rememberIn(preferences);
        const uint earlier = show(u"earlier"_s);
        settle();
        preferences->isSlow = true;
        const auto known = m_server->shown().size();
        m_center->add(request(u"a b\nc"_s));
        m_center->remove({u"earlier"_s});
        QTRY_VERIFY(m_server->closed().contains(earlier));
        QVERIFY2(m_server->shown().size() == known, "a kill now would let it be announced again");
        preferences->isSlow = false;
        preferences->write();
        QTRY_COMPARE(m_server->shown().size(), known + 1);
        const uint left = m_server->last().number;
        settle();
        const uint answered = show(u"answered"_s);
        m_server->invokeAction(answered, u"answer.0"_s);
        settle();
        const QStringList atTheKill = kept();
        QCOMPARE(atTheKill.size(), 1);
        QVERIFY2(!atTheKill.join(QString()).contains(u"Ship it"), "a text is kept in a file");
        m_center.reset();
        QVERIFY2(kept().isEmpty(), "it ended in order");
        QTRY_VERIFY(m_server->closed().contains(left));

        const struct
        {
            QString line;
            bool isClosed;
        } rows[] = {{atTheKill.constFirst(), true},
                    {QString(atTheKill.constFirst()).replace(0, 1, u'x'), false},
                    {QString(atTheKill.constFirst()).replace(u" :"_s, u" :9"_s), false},
                    {u"damaged"_s, false}};
        for (const auto &row : rows) {
            const auto before = m_server->closed().count(left);
            preferences->setStrings(preference_keys::shownNotifications, {row.line});
            m_center = std::make_unique<FreedesktopNotificationCenter>();
            m_center->setResponseHandler(
                [this](const NotificationResponse &response) { m_responses << written(response); });
            m_center->rememberIn(preferences);
            settle();
            QCOMPARE(m_server->closed().count(left), before + (row.isClosed ? 1 : 0));
            // Its question is remembered until it is dealt with.
            const QStringList question{row.line == u"damaged" ? QStringList() : QStringList{u"a b\nc"_s}};
            QCOMPARE(m_center->leftBehind(), question);
            QCOMPARE(kept().join(u'|').count(u"a b\nc"_s), question.size());
            m_center->remove(question);
            settle();
            QVERIFY(m_center->leftBehind().isEmpty() && !kept().join(u'|').contains(u"a b\nc"_s));
        }
    }

    void replacesItsOwnOnly()
    {
        const uint number = show(u"a"_s);
        settle();
        show(u"a"_s);
        QCOMPARE(m_server->last().replaced, number);
        settle();

        // Not one that offers something else: a press of "Yes" would be taken for whatever stands there now.
        NotificationRequest other = request(u"c"_s);
        show(u"c"_s);
        settle();
        other.content.payload.actions = {u"No"_s, u"Yes"_s};
        show(other);
        QCOMPARE(m_server->last().replaced, 0u);
        settle();

        // Also while the first one's number is unknown.
        m_server->holdReplies();
        const uint second = show(u"b"_s);
        m_center->add(request(u"b"_s));
        m_server->releaseReplies();
        QTRY_COMPARE(m_server->last().replaced, second);
        settle();

        // Where nobody would see it, it comes anew, or not at all.
        m_server->close(number, 1);
        settle();
        NotificationRequest change = request(u"a"_s);
        change.onlyReplaces = true;
        const auto known = m_server->shown().size();
        m_center->add(change);
        change.identifier = u"never shown"_s;
        m_center->add(change);
        settle();
        QCOMPARE(m_server->shown().size(), known + 1);
        // Nor where it is dismissed while the change waits for the disk.
        const auto disk = std::make_shared<MemoryPreferences>();
        m_center->rememberIn(disk);
        const uint dismissed = show(u"d"_s);
        settle();
        disk->isSlow = true;
        change.identifier = u"d"_s;
        m_center->add(change);
        m_server->close(dismissed, 2);
        disk->isSlow = false;
        const auto before = m_server->shown().size();
        settle();
        QCOMPARE(m_server->shown().size(), before + 1);
        show(u"a"_s);
        QCOMPARE(m_server->last().replaced, 0u);
        QTRY_VERIFY(m_server->closed().contains(number));
        settle();
    }

    void aRestartedServerAsksAgain()
    {
        const auto titled = [](const QString &title) {
            NotificationRequest made = request(title);
            made.content.title = title;
            made.content.sound = true;
            return made;
        };
        for (const char *const asked : {"oldest", "second", "third"})
            show(titled(QString::fromLatin1(asked)));
        m_server->close(show(titled(u"expired"_s)), 1);
        m_server->close(show(titled(u"dismissed"_s)), 2);
        NotificationRequest notice = titled(u"notice"_s);
        notice.content.category.reset();
        show(notice);
        settle();
        m_server->holdReplies();
        show(titled(u"on its way"_s));
        show(titled(u"withdrawn"_s));
        m_center->remove({u"withdrawn"_s});
        const auto before = m_server->shown().size();
        m_server->vanish();
        QCOMPARE(QCoro::waitFor(m_center->authorizationStatus()), AuthorizationStatus::denied);
        // The reply may have been there before anything that came earlier was handed on.
        QCoreApplication::processEvents();
        m_center->add(titled(u"missed"_s));
        QCOMPARE(QCoro::waitFor(m_center->authorizationStatus()), AuthorizationStatus::denied);
        QVERIFY(m_server->appear());
        QTRY_COMPARE(m_server->shown().size(), before + 3);
        settle();
        QStringList askedAgain;
        for (const ShownNotification &shown : m_server->shown().sliced(before))
            askedAgain << shown.summary +
                              (shown.replaced != 0 || shown.hints.contains(u"sound-name"_s) ? u"!"_s : QString());
        QCOMPARE(askedAgain.join(u", "), u"second, third, on its way, Ship it?"_s);

        // One that is slow to say who it is; until it does, a kill does not make them forgotten.
        const auto disk = std::make_shared<MemoryPreferences>();
        m_center->rememberIn(disk);
        const auto shownBefore = m_server->shown().size();
        m_server->vanish();
        m_server->holdReplies();
        QVERIFY(m_server->appear());
        QCOMPARE(QCoro::waitFor(m_center->authorizationStatus()), AuthorizationStatus::other);
        QCOMPARE(disk->strings(preference_keys::shownNotifications).value_or(QStringList()).size(), 3);
        m_server->releaseReplies();
        QTRY_COMPARE(m_server->shown().size(), shownBefore + 3);
    }

    void aMissingServerCostsWhatItMissed()
    {
        m_server->vanish();
        m_center->add(request(u"missed"_s));
        QCOMPARE(QCoro::waitFor(m_center->authorizationStatus()), AuthorizationStatus::denied);
        QVERIFY(m_server->appear());
        const uint number = show(u"b"_s);
        QCOMPARE(m_server->shown().size(), 1);
        m_server->invokeAction(number, u"answer.0"_s);
        QTRY_COMPARE(m_responses, QStringList{u"b answer.0 [] -"_s});
    }

    void aSilentServerHoldsNobodyUp()
    {
        m_server->holdReplies();
        QElapsedTimer timer;
        timer.start();
        m_center->add(request(u"missed"_s));
        QVERIFY2(timer.elapsed() < 500, "showing a notification waited for the server");
        QCOMPARE(QCoro::waitFor(m_center->authorizationStatus()), AuthorizationStatus::other);
    }

    void permission()
    {
        const QByteArray off = "[Applications][com.pingwell.mac]\nShowPopups=false\n";
        const QByteArray othersOff =
            "[Applications][org.other]\nShowPopups=false\n[Applications][com.pingwell.mac]\nSeen=1\n";
        const struct
        {
            QString server;
            QByteArray gsettings;
            QByteArray plasmanotifyrc;
            bool allowed;
        } cases[] = {{u"dunst"_s, "echo false", off, true},        {u"gnome-shell"_s, "echo false", {}, false},
                     {u"gnome-shell"_s, "echo true", off, true},   {u"gnome-shell"_s, "exit 1", off, true},
                     {u"Plasma"_s, "echo false", othersOff, true}, {u"Plasma"_s, "echo true", off, false}};
        for (const auto &row : cases) {
            writeFile(m_home.filePath(u"gsettings"_s), "#!/bin/sh\n" + row.gsettings + '\n');
            writeFile(m_home.filePath(u"plasmanotifyrc"_s), row.plasmanotifyrc);
            m_server->vanish();
            m_server->name = row.server;
            QVERIFY(m_server->appear());
            QVERIFY2(QCoro::waitFor(m_center->authorizationStatus()) ==
                         (row.allowed ? AuthorizationStatus::authorized : AuthorizationStatus::denied),
                     qPrintable(row.server + u' ' + QString::fromUtf8(row.gsettings)));
        }
    }
};

QTEST_GUILESS_MAIN(NotificationsTest)
#include "notifications_test.moc"
