#include "store/preference_keys.h"
#include "store_fixture.h"

#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

class SessionTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<StoreFixture> m;

    AppStore &store() { return *m->store; }
    QString deviceKey() const { return preference_keys::device(*m->backend->baseURLOverride); }

    /// For tests in which a loop starts whose answers don't matter.
    void letLoopsFail()
    {
        for (const char *path : {"/dashboard", "/auth/user-data", "/invites"})
            m->transport->always("GET", path, ScriptedAnswer::noAnswer());
        m->transport->always("POST", "/devices", ScriptedAnswer::noAnswer());
    }

private slots:
    void init() { m = std::make_unique<StoreFixture>(); }
    void cleanup() { m.reset(); }

    void restoring_data()
    {
        QTest::addColumn<QString>("token");
        QTest::addColumn<QByteArray>("account");
        QTest::addColumn<QString>("name");
        const QByteArray stored = R"({"name":"Ada","email":"ada@example.com","provider":"github","plan":"Pro"})";
        QTest::newRow("a whole session") << u"t"_s << stored << u"Ada"_s;
        QTest::newRow("no account record") << u"t"_s << QByteArray() << u"You"_s;
        QTest::newRow("a damaged account record") << u"t"_s << QByteArray("{\"name\":1}") << u"You"_s;
        QTest::newRow("an empty token") << u""_s << stored << QString();
    }

    void restoring()
    {
        QFETCH(QString, token);
        QFETCH(QByteArray, account);
        m->tokens->save(token);
        if (!account.isEmpty())
            m->preferences->setData(preference_keys::sessionAccount, account);
        m->start();
        QTEST(store().account() ? store().account()->name : QString(), "name");
        QVERIFY(!store().hasLoaded());
        QVERIFY(m->transport->requests().isEmpty());
    }

    void theAddressOfARestoredSession_data()
    {
        QTest::addColumn<QString>("override");
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("selfHosted");
        QTest::addColumn<QString>("expected");
        const QString cloud = APIClient::defaultBaseURL().toString();
        QTest::newRow("given") << u"https://o.test"_s << u"https://s.test"_s << u"h.test"_s << u"https://o.test"_s;
        QTest::newRow("stored") << QString() << u"https://s.test/api"_s << u"h.test"_s << u"https://s.test/api"_s;
        QTest::newRow("not an address: the choice") << QString() << u"::"_s << u"h.test/"_s << u"https://h.test"_s;
        QTest::newRow("neither: the cloud") << QString() << QString() << u"ftp://x"_s << cloud;
    }

    void theAddressOfARestoredSession()
    {
        QFETCH(QString, override);
        QFETCH(QString, stored);
        QFETCH(QString, selfHosted);
        m->backend->baseURLOverride.reset();
        if (!override.isNull())
            m->backend->baseURLOverride = QUrl(override);
        if (!stored.isNull())
            m->preferences->setString(preference_keys::sessionBaseURL, stored);
        m->preferences->setString(preference_keys::serverKind, u"selfHosted"_s);
        m->preferences->setString(preference_keys::selfHostedURL, selfHosted);
        m->start();
        QTEST(store().client()->baseURL().toString(), "expected");
    }

    void aTokenOfAForgottenServerGoesNowhere()
    {
        m->preferences->isReadable = false;
        m->start();
        QVERIFY2(store().isSignedIn(), "the server is given");
        m->backend->baseURLOverride.reset();
        m->start();
        QVERIFY(!store().isSignedIn() && !store().client() && !m->tokens->load());
        QCOMPARE(store().signInError(),
                 std::optional(u"Pingwell couldn't read its settings on this computer. Sign in again."_s));
    }

    void persistingSurvivesARestart()
    {
        m->tokens->clear();
        m->backend->baseURLOverride.reset();
        m->start();
        const Account ada{u"Ada"_s, u"ada@example.com"_s, AuthProvider::github, u"Pro"_s};
        store().persistSession(u"fresh"_s, QUrl(u"https://s.test/api"_s), ada);
        m->start();
        QCOMPARE(store().account(), std::optional(ada));
        QCOMPARE(store().client()->baseURL(), QUrl(u"https://s.test/api"_s));
        QCOMPARE(store().client()->token(), std::optional(u"fresh"_s));
    }

    void aSessionEndLeavesNothingBehind()
    {
        const QJsonObject ofAll{{u"id"_s, u"x"_s},           {u"workspaceId"_s, u"w1"_s}, {u"name"_s, u"X"_s},
                                {u"email"_s, u"x@x.test"_s}, {u"role"_s, u"owner"_s},     {u"status"_s, u"active"_s},
                                {u"platform"_s, u"web"_s}};
        const auto held = [this] {
            return QList<qsizetype>{store().alerts().size(),  store().workspaces().size(),
                                    store().topics().size(),  store().members().size(),
                                    store().devices().size(), store().invitations().size()};
        };
        m->startLoopWith({.alerts = {askJSON(u"a1"_s, 60)},
                          .members = {ofAll},
                          .topics = {ofAll},
                          .devices = {ofAll},
                          .settings = {{u"sound"_s, false}}},
                         R"([{"token":"i"}])");
        QCOMPARE(held(), QList<qsizetype>(6, 1));
        store().setServer(ServerKind::selfHosted);
        store().setFocusMode(true);
        store().setSection(SidebarSection::team);
        store().setFilter(InboxFilter::asks());
        store().selectAlert(u"a1"_s);
        store().setIsCreatingWorkspace(true);
        store().setReplyDraft(u"half"_s, u"a1"_s);
        store().showToast(u"stays"_s, false);
        m->preferences->setBoolean(preference_keys::promptDismissed, true);
        m->preferences->setString(deviceKey(), u"d1"_s);
        store().endSession(u"Bye."_s);

        QVERIFY(!m->tokens->load());
        QCOMPARE(m->notifier->removedAll, 1);
        QVERIFY(!store().client() && !store().isSignedIn() && !store().hasLoaded() && !store().focusMode());
        QCOMPARE(held(), QList<qsizetype>(6, 0));
        QVERIFY(store().replyDrafts().isEmpty() && !store().connectionProblem());
        QVERIFY(!store().selectedAlertID() && !store().isCreatingWorkspace() && !store().lastSyncedAt());
        QVERIFY(store().settings().sound && store().filter() == InboxFilter::all());
        QVERIFY(store().section() == SidebarSection::inbox && store().server() == ServerKind::selfHosted);
        QCOMPARE(store().signInError(), std::optional(u"Bye."_s));
        QCOMPARE(store().toast()->message, u"stays"_s);
        // The server choice and the device identifier stay; the rest of the session goes.
        QStringList kept = m->preferences->keys();
        kept.removeAll(preference_keys::lastNotifiedAt);
        QCOMPARE(kept, (QStringList{deviceKey(), preference_keys::serverKind}));
    }

    void signingOutRemovesTheDeviceOnce()
    {
        m->preferences->setString(deviceKey(), u"d1"_s);
        m->start();
        m->transport->plan("DELETE", "/devices/d1", ScriptedAnswer::noAnswer());
        store().signOut();
        store().signOut();
        m->settle();
        QCOMPARE(headerOf(m->transport->lastRequest("DELETE", "/devices/d1"), "Authorization"),
                 QByteArray("Bearer token-1"));
        QVERIFY(!m->preferences->contains(deviceKey()) && !store().connectionProblem());
    }

    void aNewSessionRefreshesWhileAnOldRequestHangs()
    {
        m->start();
        m->transport->plan("GET", "/dashboard", ScriptedAnswer::failure(401).heldBack());
        store().refresh();
        m->settle();
        m->changeSession();
        m->transport->plan("GET", "/dashboard", ScriptedAnswer::data(DashboardJSON().body()).heldBack());
        store().refresh();
        m->settle();
        m->release();
        QVERIFY2(store().isSignedIn(), "the old session's end is not this one's");
        store().refresh();
        m->release();
        QVERIFY(store().hasLoaded());
        QCOMPARE(m->transport->count("GET", "/dashboard"), 2);
    }

    void aLateKeyringRestoresTheSession()
    {
        m->tokens->clear();
        m->start();
        QVERIFY(!store().isSignedIn());
        m->tokens->save(u"token-1"_s);
        letLoopsFail();
        m->tokens->onBecameReadable();
        m->settle();
        QVERIFY(store().isSignedIn());
        QCOMPARE(m->transport->count("GET", "/dashboard"), 1);
        m->tokens->onNotKept();
        QVERIFY(store().toast()->isError);
    }
};

QTEST_GUILESS_MAIN(SessionTest)
#include "session_test.moc"
