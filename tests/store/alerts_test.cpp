#include "desktop/preference_keys.h"
#include "store/notification_mark.h"
#include "store_fixture.h"

#include <QJsonDocument>
#include <QSignalSpy>
#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

namespace {

const QString a1 = u"a1"_s;
const QByteArray answerPath = "/workspaces/w1/alerts/a1/answer";
const ScriptedAnswer refusal = ScriptedAnswer::failure(409, "closed", "Somebody was faster.");

DashboardJSON textAsk()
{
    return {.alerts = {askJSON(a1, 60, {{u"answerType"_s, u"text"_s}})}};
}

DashboardJSON readAlerts(const QStringList &ids)
{
    DashboardJSON dashboard;
    for (const QString &id : ids)
        dashboard.alerts << alertJSON(id, 60, {{u"read"_s, true}});
    return dashboard;
}

} // namespace

/// What belongs to an alert on this machine alone: drafts, banners and unread marks.
class AlertsTest : public StoreTest
{
    Q_OBJECT

    std::optional<QStringList> unreadMarks() const { return m->preferences->strings(preference_keys::unreadAlerts); }

private slots:
    void anAnswerTakesDraftBannerAndMarkAlong()
    {
        m->preferences->setStrings(preference_keys::unreadAlerts, {a1});
        m->startWith(textAsk());
        m->transport->plan("POST", answerPath, refusal.heldBack());
        m->transport->plan("GET", "/dashboard", ScriptedAnswer::noAnswer());
        store().setReplyDraft(u"  yes "_s, a1);
        store().answer(a1, store().replyDraft(a1));
        QCOMPARE(store().replyDraft(a1), QString());
        QCOMPARE(unreadMarks(), std::optional(QStringList()));
        QCOMPARE(store().needsReplyCount(), 0);
        QCOMPARE(m->notifier->removed, QStringList{a1});
        m->settle();
        m->release();
        QCOMPARE(store().replyDraft(a1), u"yes"_s);
        QCOMPARE(store().needsReplyCount(), 1);
    }

    void aRefusalIsToldWhereThePersonLooks()
    {
        for (const QByteArray place : {"a banner", "a panel that has closed", "a window that shows it"}) {
            const InRow row = anew(place);
            const bool isShown = place.startsWith("a window");
            m->startWith({.alerts = {askJSON(a1, 60)}});
            store().setAttention({.isOnAlert = [isShown](const QString &id) { return isShown && id == a1; }});
            m->transport->plan("POST", answerPath, refusal);
            m->transport->plan("GET", "/dashboard", ScriptedAnswer::noAnswer());
            const QSignalSpy toasts(&store(), &AppStore::toastChanged);
            if (place == "a banner")
                store().answerFromNotification(a1, u"Approve"_s);
            else
                store().answer(a1, u"Approve"_s);
            m->settle();
            const QStringList told{u"a1 in Workspace w1: Somebody was faster. Again?"_s};
            QCOMPARE(m->notifier->refused, isShown ? QStringList() : told);
            QCOMPARE(store().toast()->message, u"Somebody was faster."_s);
            QCOMPARE(toasts.count(), 1);
        }
    }

    void aBannersAnswerThatMayNotBeGivenIsToldToo()
    {
        m->startWith(textAsk());
        store().setReplyDraft(u"half a thou"_s, a1);
        store().answerFromNotification(a1, u" "_s);
        QCOMPARE(store().replyDraft(a1), u"half a thou"_s);
        store().answerFromNotification(a1, QString(999, u'x') + u"😀"_s);
        const QString told = u"a1 in Workspace w1: An answer has 1 to 1000 characters. Again?"_s;
        QCOMPARE(m->notifier->refused, (QStringList{told, told}));
        QVERIFY2(store().replyDraft(a1).size() == 999, "cut between two characters");
        store().answerFromNotification(u"deleted"_s, u"x"_s);
        store().endSession({});
        store().answerFromNotification(a1, u"x"_s);
        QCOMPARE(m->notifier->messages,
                 (QStringList{u"deleted: Your answer didn't go through | This question no longer exists."_s,
                              u"a1: Your answer didn't go through | You are signed out."_s}));
        QVERIFY(!store().toast());
    }

    void bannersEndWithTheirAsks()
    {
        const QString a2 = u"a2"_s;
        const QString a3 = u"a3"_s;
        const double soon = millisecondsFromInstant(testStart + Seconds(30));
        const QJsonObject timed = askJSON(a3, 60, {{u"expiresAt"_s, soon}});
        m->startWith({.alerts = {askJSON(a1, 60), askJSON(a2, 60), timed}});
        store().startClock();
        m->refreshWith({.alerts = {askJSON(a2, 60), timed}});
        QCOMPARE(m->notifier->ended, QStringList{a1});
        m->refreshWith({.alerts = {askJSON(a2, 60, {{u"answer"_s, u"Deny"_s}}), timed}});
        QCOMPARE(m->notifier->ended, (QStringList{a1, a2}));
        m->clock->advance(std::chrono::seconds(30));
        m->settle();
        QCOMPARE(m->notifier->ended, (QStringList{a1, a2, a3}));
    }

    /// In the session of the same account at the same server.
    void aKilledRunsAsksAreAnnouncedAgainOnce()
    {
        const QString server = u"https://pingwell.test"_s, email = u"me@x.y"_s;
        const auto account = [](const QString &address) {
            return Account{.name = u"Me"_s, .email = address, .provider = AuthProvider::google, .plan = {}};
        };
        for (const auto &[oldServer, oldEmail] :
             {std::pair(server, email), {u"https://other.test"_s, email}, {server, u"you@x.y"_s}}) {
            const InRow row = anew((oldServer + u' ' + oldEmail).toUtf8());
            const QStringList again = oldServer + oldEmail == server + email ? QStringList{a1} : QStringList();
            m->preferences->setString(preference_keys::lastNotifiedOwner,
                                      notificationMarkOwner(QUrl(oldServer), account(oldEmail)));
            m->notifier->left = {a1, u"answered"_s, u"gone"_s, u"notice"_s};
            DashboardJSON dashboard{.alerts = {askJSON(a1, 7200),
                                               askJSON(u"answered"_s, 60, {{u"answer"_s, u"Deny"_s}}),
                                               alertJSON(u"notice"_s, 60), askJSON(u"never announced"_s, 60)}};
            m->start();
            // Nothing is decided while it is not known who the person is.
            for (const QString &address : {QString(), email}) {
                QVERIFY(m->notifier->removed.isEmpty() && m->notifier->delivered.isEmpty());
                store().persistSession(u"token-2"_s, QUrl(server), account(address));
                dashboard.alerts << alertJSON(address, 60);
                m->refreshWith(dashboard);
            }
            QCOMPARE(m->notifier->delivered, again);
            QStringList dropped = m->notifier->left;
            dropped.removeOne(again.value(0));
            QCOMPARE(m->notifier->removed, dropped);
            m->refreshWith({.alerts = {askJSON(a1, 7200)}});
            QCOMPARE(m->notifier->removed, dropped);
            QCOMPARE(m->notifier->delivered, again);
        }
    }

    void deletingClearsWhatShowsIt()
    {
        m->startWith(textAsk());
        m->transport->plan("DELETE", "/workspaces/w1/alerts/a1", ScriptedAnswer::raw(204, ""));
        store().selectAlert(a1);
        store().deleteAlert(a1);
        QVERIFY(!store().selectedAlertID());
        QCOMPARE(m->notifier->removed, QStringList{a1});
        m->settle();
    }

    void unreadStaysOnThisMachine()
    {
        m->startWith({.alerts = {alertJSON(a1, 60)}});
        store().setRead(a1, false);
        QVERIFY2(!unreadMarks(), "it was unread before");
        m->refreshWith(readAlerts({a1}));
        // No answer is planned: the service knows already.
        store().setRead(a1, true);
        m->settle();
        store().toggleRead(a1);
        m->refreshWith(readAlerts({a1}));
        QVERIFY(!m->alert(a1).read);
        // A restart: another store on the same preferences.
        m->startWith(readAlerts({a1}));
        QVERIFY(!m->alert(a1).read);
        m->transport->plan("POST", "/workspaces/w1/alerts/a1/read", refusal);
        m->transport->plan("GET", "/dashboard", ScriptedAnswer::noAnswer());
        store().setRead(a1, true);
        QCOMPARE(unreadMarks(), std::optional(QStringList()));
        m->settle();
        QCOMPARE(unreadMarks(), std::optional(QStringList{a1}));
    }

    void unreadMarksOfVanishedAlertsAreDropped()
    {
        m->preferences->setStrings(preference_keys::unreadAlerts, {a1, u"gone"_s});
        m->startWith(readAlerts({a1}));
        QCOMPARE(unreadMarks()->size(), 2);
        // By the second dashboard, whatever it brings.
        m->refreshWith(readAlerts({a1}));
        QCOMPARE(unreadMarks(), std::optional(QStringList{a1}));
    }

    void readingAllLeavesNoMarks()
    {
        for (const bool isRefused : {false, true}) {
            m->startWith(readAlerts({a1, u"a2"_s}));
            store().setRead(a1, false);
            m->transport->plan("POST", "/workspaces/w1/alerts/read-all",
                               isRefused ? refusal : ScriptedAnswer::raw(204, ""));
            m->transport->always("GET", "/dashboard", ScriptedAnswer::noAnswer());
            store().markAllRead();
            m->settle();
            QCOMPARE(store().unreadCount(), isRefused ? 1 : 0);
            QCOMPARE(unreadMarks(), std::optional(QStringList()));
        }
    }

    void aTestAlertIsAnnouncedOnce()
    {
        m->startWith({});
        const QJsonObject created = alertJSON(u"t1"_s, -5);
        m->transport->plan("POST", "/workspaces/w1/alerts/test", ScriptedAnswer::data(QJsonDocument(created).toJson()));
        store().sendTestAlert();
        m->settle();
        QCOMPARE(m->notifier->delivered, QStringList{u"t1 in Workspace w1, sounds"_s});
        m->changeSession();
        m->refreshWith({.alerts = {created}});
        QCOMPARE(m->notifier->delivered.size(), 1);
    }

    void whatCannotBeKeptHereIsToldOnce()
    {
        m->preferences->keepsThem = false;
        m->startWith(readAlerts({a1}));
        store().updateSettings([](auto &settings) { settings.quietHoursEnabled = true; });
        QCOMPARE(store().toast()->message,
                 u"Pingwell couldn't save this on your computer. It holds until you quit Pingwell."_s);
        store().showToast(u"Later."_s, false);
        store().setRead(a1, false);
        QCOMPARE(store().toast()->message, u"Later."_s);
    }
};

QTEST_GUILESS_MAIN(AlertsTest)
#include "alerts_test.moc"
