#include "auth/keychain_token_store.h"
#include "desktop/preference_keys.h"
#include "store_fixture.h"
#include "support/fake_keychain.h"

#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

class SessionTest : public StoreTest
{
    Q_OBJECT

    QString deviceKey() const { return preference_keys::device(*m->backend->baseURLOverride); }

private slots:
    /// Without an account record the person is "You"; what can't be a token is none.
    void restoring()
    {
        const QByteArray stored = R"({"name":"Ada","email":"ada@example.com","provider":"github","plan":"Pro"})";
        const std::tuple<QString, QByteArray, QString> rows[] = {{u"t"_s, stored, u"Ada"_s},
                                                                 {u"t"_s, {}, u"You"_s},
                                                                 {u"t"_s, "{\"name\":1}", u"You"_s},
                                                                 {u""_s, stored, {}},
                                                                 {u"to\r\nken"_s, stored, {}},
                                                                 {u"tøken"_s, stored, {}},
                                                                 {u" https://pingwell.test"_s, stored, {}}};
        for (const auto &[token, account, name] : rows) {
            const InRow row = anew(token.toUtf8() + ' ' + account);
            m->tokens->save(token);
            if (!account.isEmpty())
                m->preferences->setData(preference_keys::sessionAccount, account);
            m->start();
            QCOMPARE(store().account() ? store().account()->name : QString(), name);
            QVERIFY(!store().hasLoaded());
            QVERIFY(m->transport->requests().isEmpty());
        }
    }

    void theAddressOfARestoredSession()
    {
        const QString cloud = APIClient::defaultBaseURL().toString();
        const QString o = u"https://o.test"_s, s = u"https://s.test/api"_s, withPort = u"http://s.test:81/"_s, none;
        // The name of the row, the secret, the addresses given, stored and chosen, and the one that is used.
        const std::tuple<const char *, QString, QString, QString, QString, QString> rows[] = {
            {"given", u"t"_s, o, u"https://s.test"_s, u"h.test"_s, o},
            {"stored", u"t"_s, none, s, u"h.test"_s, s},
            {"not an address: the choice", u"t"_s, none, u"::"_s, u"h.test/"_s, u"https://h.test"_s},
            {"neither: the cloud", u"t"_s, none, none, u"ftp://x"_s, cloud},
            {"its own", u"t https://s.test"_s, none, s, none, s},
            {"its own, with a port", u"t http://s.test:81"_s, none, withPort, none, withPort},
            {"its own, given", u"t https://o.test"_s, u"https://o.test:443/x"_s, s, none, u"https://o.test:443/x"_s},
            {"another, given", u"t https://s.test"_s, o, s, none, none},
            {"another, stored", u"t https://o.test"_s, none, s, none, none},
            {"another, chosen", u"t https://o.test"_s, none, none, u"h.test"_s, none},
            {"another, in the cloud", u"t https://o.test"_s, none, none, none, none},
            {"another scheme", u"t https://s.test"_s, none, u"http://s.test"_s, none, none},
            {"another port", u"t https://s.test"_s, none, u"https://s.test:444"_s, none, none}};
        for (const auto &[name, secret, given, stored, chosen, expected] : rows) {
            const InRow row = anew(name);
            m->tokens->save(secret);
            m->backend->baseURLOverride.reset();
            if (!given.isNull())
                m->backend->baseURLOverride = QUrl(given);
            if (!stored.isNull())
                m->preferences->setString(preference_keys::sessionBaseURL, stored);
            m->preferences->setString(preference_keys::serverKind, u"selfHosted"_s);
            m->preferences->setString(preference_keys::selfHostedURL, chosen);
            m->start();
            QCOMPARE(store().client() ? store().client()->baseURL().toString() : QString(), expected);
            QCOMPARE(store().isSignedIn(), store().signInError().value_or(QString()).isEmpty());
            QVERIFY2(m->tokens->load() == secret, "what is not used is not lost");
        }
    }

    void aRefusalEndsTheStoredSessionOfItsServerAlone()
    {
        for (const bool isAnothers : {false, true}) {
            m = std::make_unique<StoreFixture>();
            m->preferences->setString(preference_keys::sessionBaseURL,
                                      isAnothers ? u"https://s.test"_s : u"https://pingwell.test/x"_s);
            m->start();
            m->refreshWith(ScriptedAnswer::failure(401));
            QVERIFY(!store().isSignedIn());
            QCOMPARE(m->tokens->load().has_value(), isAnothers);
            QCOMPARE(m->preferences->contains(preference_keys::sessionBaseURL), isAnothers);
            m->tokens->onBecameReadable();
            QVERIFY2(!store().isSignedIn(), "the same server would refuse it again");
        }
    }

    void aSignOutLastsThoughTheKeyringIsLocked()
    {
        for (const bool isRemembered : {true, false}) {
            const InRow row = anew(isRemembered ? "remembered" : "the settings can't be saved either");
            const auto keychain = std::make_shared<FakeKeychain>();
            const auto startWithKeychain = [&] {
                m->store.reset();
                m->backend->tokenStore.reset();
                m->backend->tokenStore = std::make_shared<KeychainTokenStore>(keychain, u"s"_s, u"a"_s);
                m->start();
            };
            keychain->setItem("token-1");
            startWithKeychain();
            QVERIFY(store().isSignedIn());
            m->preferences->keepsThem = isRemembered;
            keychain->setStatus(KeychainStatus::locked);
            keychain->answerUnlock(KeychainStatus::locked, KeychainStatus::locked);
            store().signOut();
            QTRY_COMPARE(m->notifier->messages.size(), 1);
            QCOMPARE(store().toast()->message, m->notifier->messages.first().section(u" | "_s, 1));
            QCOMPARE(store().toast()->message.contains(u"before you quit"_s), !isRemembered);

            // The next run finds the token that was signed out, and opens no question about it.
            const auto questions = [&] {
                return keychain->calls().count(u"unlock"_s) + keychain->calls().count(u"copy s/a"_s);
            };
            const auto asked = questions();
            startWithKeychain();
            QVERIFY(!store().isSignedIn() && !store().client());
            QTRY_COMPARE(keychain->calls().last(), u"remove"_s);
            QCOMPARE(questions(), asked);

            // The one after it finds the keyring open.
            keychain->setStatus(KeychainStatus::success);
            startWithKeychain();
            QVERIFY(!store().isSignedIn() && !store().client());
            QTRY_VERIFY(!keychain->item());
            QTRY_VERIFY(!m->preferences->contains(preference_keys::sessionErasingOwed));
        }
    }

    void aSessionThatWasNotKeptLeavesNoOlderOne()
    {
        m->preferences->setString(preference_keys::sessionBaseURL, u"https://s.test"_s);
        m->start();
        m->tokens->onNotKept();
        QVERIFY(store().toast()->isError);
        m->start();
        QVERIFY2(!store().isSignedIn() && !m->tokens->load(), "the keyring may hold the token of another server");
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
        m->refreshWith(ScriptedAnswer::failure(401).heldBack());
        m->changeSession();
        m->refreshWith(ScriptedAnswer::data(DashboardJSON().body()).heldBack());
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
        m->letLoopsFail();
        m->tokens->onBecameReadable();
        m->settle();
        QVERIFY(store().isSignedIn());
        QCOMPARE(m->transport->count("GET", "/dashboard"), 1);
    }

    void theEndOfASessionIsTold()
    {
        for (const bool isWatched : {false, true}) {
            m = std::make_unique<StoreFixture>();
            m->startWith({});
            store().setAttention({.isOnWindow = [isWatched] { return isWatched; }});
            m->refreshWith(ScriptedAnswer::failure(401, "", "Your access was revoked."));
            const QString told = u"pingwell.session: You've been signed out | Your access was revoked."_s;
            QCOMPARE(m->notifier->messages, isWatched ? QStringList() : QStringList{told});
            QCOMPARE(m->notifier->removedAll, 1);
            // By the person's own hand there is nothing to tell.
            m->changeSession();
            QVERIFY(isWatched || m->notifier->removed.contains(u"pingwell.session"_s));
            store().signOut();
            QCOMPARE(m->notifier->messages.size(), isWatched ? 0 : 1);
        }
    }

    void whatWasTypedWaitsForTheSamePerson()
    {
        const QString server = u"https://pingwell.test"_s;
        const Account ada{u"Ada"_s, u"ada@example.com"_s, AuthProvider::github, u"Pro"_s};
        const std::tuple<QByteArray, Account, QString> rows[] = {
            {"the same person", {u"Ada L."_s, ada.email, ada.provider, {}}, server},
            {"another person", {ada.name, u"a@b.c"_s, ada.provider, {}}, server},
            {"another way in", {{}, ada.email, AuthProvider::google, {}}, server},
            {"nobody known", Account(), server},
            {"another server", ada, u"https://o.test"_s},
            {"after signing out", ada, server}};
        for (const auto &[name, next, nextServer] : rows) {
            const InRow row = anew(name);
            const bool isRefused = name != "after signing out";
            m->preferences->setData(preference_keys::sessionAccount,
                                    R"({"name":"Ada","email":"ada@example.com","provider":"github","plan":""})");
            const QJsonObject text{{u"answerType"_s, u"text"_s}, {u"title"_s, u"Which region?"_s}};
            m->startWith(
                {.alerts = {askJSON(u"a1"_s, 60, text), askJSON(u"a2"_s, 60, text), askJSON(u"a3"_s, 60, text)}});
            for (const char *alert : {"a1", "a3"})
                m->transport->plan("POST", "/workspaces/w1/alerts/" + QByteArray(alert) + "/answer",
                                   ScriptedAnswer::failure(401, "", "Bye.").heldBack());
            store().answer(u"a1"_s, u"north"_s);
            store().answer(u"a3"_s, u"south"_s);
            store().setReplyDraft(u"half"_s, u"a2"_s);
            m->settle();
            if (!isRefused)
                store().signOut();
            m->release();
            QCOMPARE(store().signInError().value_or(QString()),
                     isRefused ? u"Bye. Your answer to “Which region?” wasn't sent."_s : QString());
            m->release();
            QCOMPARE(store().signInError().value_or(QString()),
                     isRefused ? u"Bye. Your answers to 2 questions weren't sent."_s : QString());
            QVERIFY(store().replyDrafts().isEmpty() && store().toast() == std::nullopt);
            const QString untold = u"a3: Your answer didn't go through | Your answer to “Which region?” wasn't sent."_s;
            QVERIFY(isRefused || m->notifier->messages.value(1) == untold);

            store().persistSession(u"next"_s, QUrl(nextServer), next);
            const QHash<QString, QString> typed{{u"a1"_s, u"north"_s}, {u"a2"_s, u"half"_s}, {u"a3"_s, u"south"_s}};
            const QHash<QString, QString> none;
            QCOMPARE(store().replyDrafts(), name == "the same person" ? typed : none);
        }
    }
};

QTEST_GUILESS_MAIN(SessionTest)
#include "session_test.moc"
