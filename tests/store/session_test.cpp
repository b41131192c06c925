#include "store/preference_keys.h"
#include "store_fixture.h"

#include <QTest>

using namespace pingwell;

namespace {

const QByteArray storedAccount = R"({"name":"Ada","email":"ada@example.com","provider":"github","plan":"Pro"})";

} // namespace

class SessionTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<StoreFixture> m;

    AppStore &store() { return *m->store; }

private slots:
    void init() { m = std::make_unique<StoreFixture>(); }
    void cleanup() { m.reset(); }

    void restoring_data()
    {
        QTest::addColumn<QString>("token");
        QTest::addColumn<QByteArray>("account");
        QTest::addColumn<QString>("name");
        QTest::newRow("a whole session") << "t" << storedAccount << "Ada";
        QTest::newRow("no account record") << "t" << QByteArray() << "You";
        QTest::newRow("a damaged account record") << "t" << QByteArray("{\"name\":1}") << "You";
        QTest::newRow("an empty token") << "" << storedAccount << QString();
    }

    void restoring()
    {
        QFETCH(QString, token);
        QFETCH(QByteArray, account);
        QFETCH(QString, name);
        m->tokens->save(token);
        if (!account.isEmpty())
            m->preferences->setData(preference_keys::sessionAccount, account);
        m->start();
        QCOMPARE(store().isSignedIn(), !name.isNull());
        if (store().isSignedIn())
            QCOMPARE(store().account()->name, name);
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
        QTest::newRow("the override goes first") << "https://o.test"
                                                 << "https://s.test"
                                                 << "h.test"
                                                 << "https://o.test";
        QTest::newRow("the stored one") << QString() << "https://s.test/api"
                                        << "h.test"
                                        << "https://s.test/api";
        QTest::newRow("not an address: the choice") << QString() << "::"
                                                    << "h.test/"
                                                    << "https://h.test";
        QTest::newRow("neither: the cloud") << QString() << QString() << "ftp://x" << cloud;
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
        m->preferences->setString(preference_keys::serverKind, QStringLiteral("selfHosted"));
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
                 std::optional(QStringLiteral("Pingwell couldn't read its settings on this computer. Sign in again.")));
    }

    void persistingSurvivesARestart()
    {
        m->tokens->clear();
        m->backend->baseURLOverride.reset();
        m->start();
        QVERIFY(!store().isSignedIn());
        const Account ada{.name = QStringLiteral("Ada"),
                          .email = QStringLiteral("ada@example.com"),
                          .provider = AuthProvider::github,
                          .plan = QStringLiteral("Pro")};
        store().persistSession(QStringLiteral("fresh"), QUrl(QStringLiteral("https://s.test/api")), ada);
        QVERIFY(store().client());
        m->start();
        QCOMPARE(store().account(), std::optional(ada));
        QCOMPARE(store().client()->baseURL(), QUrl(QStringLiteral("https://s.test/api")));
        QCOMPARE(store().client()->token(), std::optional(QStringLiteral("fresh")));
    }

    void aSessionEndLeavesNothingBehind()
    {
        DashboardJSON dashboard;
        dashboard.alerts = {askJSON(QStringLiteral("a1"), 60)};
        dashboard.settings = {{QStringLiteral("sound"), false}};
        m->startWith(dashboard);
        store().setServer(ServerKind::selfHosted);
        store().setFocusMode(true);
        store().setSection(SidebarSection::team);
        store().setFilter(InboxFilter::asks());
        store().selectAlert(QStringLiteral("a1"));
        store().setIsCreatingWorkspace(true);
        store().setReplyDraft(QStringLiteral("half"), QStringLiteral("a1"));
        store().showToast(QStringLiteral("stays"), false);
        m->preferences->setBoolean(preference_keys::promptDismissed, true);
        m->preferences->setString(preference_keys::device(QUrl(QStringLiteral("https://pingwell.test"))),
                                  QStringLiteral("d1"));
        store().endSession(QStringLiteral("Bye."));

        QCOMPARE(m->tokens->load(), std::optional<QString>());
        QCOMPARE(m->notifier->removedAll, 1);
        QVERIFY(!store().client() && !store().isSignedIn() && !store().hasLoaded() && !store().focusMode());
        QVERIFY(store().alerts().isEmpty() && store().workspaces().isEmpty() && store().replyDrafts().isEmpty());
        QVERIFY(!store().selectedAlertID() && !store().isCreatingWorkspace() && !store().lastSyncedAt());
        QVERIFY(store().settings().sound);
        QCOMPARE(store().filter(), InboxFilter::all());
        QCOMPARE(store().section(), SidebarSection::inbox);
        QCOMPARE(store().signInError(), std::optional(QStringLiteral("Bye.")));
        QCOMPARE(store().toast()->message, QStringLiteral("stays"));
        QCOMPARE(store().server(), ServerKind::selfHosted);
        // The server choice and the device identifier stay; the rest of the session goes.
        QStringList kept = m->preferences->keys();
        kept.removeAll(preference_keys::lastNotifiedAt);
        QCOMPARE(kept,
                 (QStringList{QStringLiteral("pingwell.device.https://pingwell.test"), preference_keys::serverKind}));
    }

    void signingOutRemovesTheDeviceOnce()
    {
        m->preferences->setString(preference_keys::device(*m->backend->baseURLOverride), QStringLiteral("d1"));
        m->start();
        m->transport->plan("DELETE", "/devices/d1", ScriptedAnswer::noAnswer());
        store().signOut();
        store().signOut();
        m->settle();
        QCOMPARE(headerOf(m->transport->lastRequest("DELETE", "/devices/d1"), "Authorization"),
                 QByteArray("Bearer token-1"));
        QVERIFY(!m->preferences->contains(preference_keys::device(*m->backend->baseURLOverride)));
        QVERIFY(!store().connectionProblem());
    }

    void aNewSessionRefreshesWhileAnOldRequestHangs()
    {
        m->start();
        m->transport->plan("GET", "/dashboard", ScriptedAnswer::failure(401).heldBack());
        store().refresh();
        m->settle();
        store().signOut();
        store().persistSession(QStringLiteral("token-2"), QUrl(QStringLiteral("https://pingwell.test")), Account());
        m->refreshWith({});
        QVERIFY(store().hasLoaded());
        m->transport->release();
        m->settle();
        QVERIFY(store().isSignedIn());
    }

    void aLateKeyringRestoresTheSession()
    {
        m->tokens->clear();
        m->start();
        QVERIFY(!store().isSignedIn());
        m->tokens->save(QStringLiteral("token-1"));
        m->transport->always("GET", "/dashboard", ScriptedAnswer::noAnswer());
        m->transport->always("GET", "/auth/user-data", ScriptedAnswer::noAnswer());
        m->transport->always("POST", "/devices", ScriptedAnswer::noAnswer());
        m->transport->always("GET", "/invites", ScriptedAnswer::noAnswer());
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
