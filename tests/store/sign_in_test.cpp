#include "auth/web_authenticator.h"
#include "store/preference_keys.h"
#include "store_fixture.h"

#include <QCryptographicHash>
#include <QJsonDocument>
#include <QTest>
#include <QUrlQuery>

using namespace pingwell;
using namespace std::chrono_literals;

namespace {

const QByteArray exchange = "/auth/native/token";
const QByteArray session = R"({"token":"fresh","user":{"name":"Ada","provider":"github"}})";

QUrl callback(const QString &query)
{
    return QUrl(QStringLiteral("pingwell://auth/callback") + query);
}

} // namespace

class SignInTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<StoreFixture> m;
    std::shared_ptr<WebAuthenticator> m_browser;
    QList<QUrl> m_opened;
    bool m_browserWorks = true;

    AppStore &store() { return *m->store; }

    void serveAnyPoll()
    {
        m->transport->always("GET", "/dashboard", ScriptedAnswer::data(DashboardJSON().body()));
        m->transport->always("GET", "/auth/user-data", ScriptedAnswer::raw(200, session));
        m->transport->always("POST", "/devices", ScriptedAnswer::noAnswer());
        m->transport->always("GET", "/invites", ScriptedAnswer::data("[]"));
    }

private slots:
    void init()
    {
        m = std::make_unique<StoreFixture>();
        m->tokens->clear();
        m_opened.clear();
        m_browserWorks = true;
        const auto open = [this](const QUrl &url) {
            m_opened << url;
            return m_browserWorks;
        };
        m_browser = std::make_shared<WebAuthenticator>(open, m->clock);
        m->backend->authenticate = [browser = m_browser](QUrl url, QString scheme) {
            return browser->authenticate(url, scheme);
        };
        m->backend->cancelAuthentication = [browser = m_browser] { browser->cancel(); };
    }

    void cleanup()
    {
        m_browser->cancel();
        m.reset();
        m_browser.reset();
    }

    void theWholeFlow()
    {
        serveAnyPoll();
        m->start();
        store().signIn(QStringLiteral("github"));
        store().signIn(QStringLiteral("google"));
        QCOMPARE(m_opened.size(), 1);
        const QUrl page = m_opened.first();
        QCOMPARE(page.path(), QStringLiteral("/auth/github"));
        QStringList names;
        for (const auto &[name, value] : QUrlQuery(page).queryItems())
            names << name;
        QCOMPARE(names.join(u' '), QStringLiteral("redirect_uri code_challenge code_challenge_method"));
        QVERIFY(store().isSigningIn());
        QCOMPARE(store().property("signInHost").toString(), QStringLiteral("pingwell.test"));

        m->transport->plan("POST", exchange, ScriptedAnswer::raw(200, session));
        m_browser->handleCallback(callback(QStringLiteral("?code=abc&scope=all")));
        m_browser->handleCallback(callback(QStringLiteral("?code=abc&scope=all")));
        m->settle();

        const HTTPRequest sent = m->transport->lastRequest("POST", exchange);
        QCOMPARE(headerOf(sent, "Authorization"), QByteArray());
        const QJsonObject body = QJsonDocument::fromJson(*sent.body).object();
        QCOMPARE(body.value(QStringLiteral("code")).toString(), QStringLiteral("abc"));
        const QByteArray verifier = body.value(QStringLiteral("code_verifier")).toString().toLatin1();
        QCOMPARE(verifier.size(), 43);
        QCOMPARE(QUrlQuery(page).queryItemValue(QStringLiteral("code_challenge")).toLatin1(),
                 QCryptographicHash::hash(verifier, QCryptographicHash::Sha256)
                     .toBase64(QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals));
        QVERIFY(!store().isSigningIn());
        QCOMPARE(store().account()->name, QStringLiteral("Ada"));
        QVERIFY(store().hasLoaded());
        QCOMPARE(m->tokens->load(), std::optional(QStringLiteral("fresh")));
        QCOMPARE(m->preferences->string(preference_keys::sessionBaseURL),
                 std::optional(QStringLiteral("https://pingwell.test")));
    }

    void unsuccessfulEnds_data()
    {
        QTest::addColumn<QString>("query");
        QTest::addColumn<ScriptedAnswer>("answer");
        QTest::addColumn<QString>("message");
        const QString unfinished = QStringLiteral("Sign-in didn't finish. Try again.");
        const ScriptedAnswer none = ScriptedAnswer::noAnswer();
        QTest::newRow("denied") << "?error=access_denied" << none << "Sign-in was cancelled.";
        QTest::newRow("an empty code falls through")
            << "?code=&error=access_denied" << none << "Sign-in was cancelled.";
        QTest::newRow("not offered") << "?error=provider_unavailable" << none
                                     << "That sign-in option isn't available on this server.";
        QTest::newRow("another error") << "?error=server_error" << none << unfinished;
        QTest::newRow("an error without a value") << "?error" << none << unfinished;
        QTest::newRow("no query") << "" << none << unfinished;
        QTest::newRow("exchange offline")
            << "?code=abc" << none << "Can't reach the Pingwell server. Check your connection.";
        QTest::newRow("exchange refused")
            << "?code=abc" << ScriptedAnswer::failure(400, "expired", "That code is old.") << "That code is old.";
        QTest::newRow("no token") << "?code=abc" << ScriptedAnswer::raw(200, R"({"user":{}})") << unfinished;
        QTest::newRow("an empty token") << "?code=abc" << ScriptedAnswer::raw(200, R"({"token":"","user":{}})")
                                        << unfinished;
    }

    void unsuccessfulEnds()
    {
        QFETCH(QString, query);
        QFETCH(ScriptedAnswer, answer);
        m->start();
        store().signIn(QStringLiteral("google"));
        if (query.contains(QStringLiteral("code=a")))
            m->transport->plan("POST", exchange, answer);
        m_browser->handleCallback(callback(query));
        m->settle();
        QTEST(store().signInError().value_or(QString()), "message");
        QVERIFY(!store().isSigningIn() && !store().isSignedIn());
        QVERIFY(m->preferences->keys().isEmpty());
    }

    void foreignCallbacksAreIgnored()
    {
        m->start();
        m_browser->handleCallback(callback(QStringLiteral("?code=early")));
        store().signIn(QStringLiteral("google"));
        for (const auto *url : {"https://auth/callback?code=x", "pingwell://other/callback?code=x",
                                "pingwell://auth/elsewhere?code=x", "pingwell:"})
            m_browser->handleCallback(QUrl(QString::fromLatin1(url)));
        m->settle();
        QVERIFY(store().isSigningIn());
    }

    void givingUpSaysNothing()
    {
        m->start();
        store().signIn(QStringLiteral("google"));
        store().cancelSignIn();
        m->settle();
        QVERIFY(!store().isSigningIn() && !store().signInError());
        store().signIn(QStringLiteral("google"));
        m->clock->advance(9min);
        QVERIFY(store().isSigningIn());
        m->clock->advance(1min);
        m->settle();
        QVERIFY(!store().isSigningIn() && !store().signInError());
    }

    void noBrowser()
    {
        m_browserWorks = false;
        m->start();
        store().signIn(QStringLiteral("google"));
        m->settle();
        QCOMPARE(store().signInError(), std::optional(QStringLiteral("Couldn't open the sign-in window.")));
        QVERIFY(!store().isSigningIn());
    }

    void anAddressIsNeeded()
    {
        m->backend->baseURLOverride.reset();
        m->start();
        store().setServer(ServerKind::selfHosted);
        store().signIn(QStringLiteral("google"));
        QVERIFY(store().signInError()->startsWith(QStringLiteral("Enter your server's address, like ")));
        QVERIFY(!store().isSigningIn() && m_opened.isEmpty());
    }

    void providersOfTheChosenServer()
    {
        m->backend->baseURLOverride.reset();
        m->start();
        m->transport->plan("GET", "/auth/providers",
                           ScriptedAnswer::data(R"({"providers":["gitlab","github","github"]})").heldBack());
        store().setServer(ServerKind::selfHosted);
        store().setSelfHostedURL(QStringLiteral("a.test"));
        m->clock->advance(500ms);
        m->settle();
        QCOMPARE(m->transport->count("GET", "/auth/providers"), 1);
        store().setSelfHostedURL(QStringLiteral("b.test"));
        m->transport->release();
        m->settle();
        QCOMPARE(store().availableProviders().size(), 2);
        m->transport->plan("GET", "/auth/providers", ScriptedAnswer::data(R"({"providers":["github","gitlab"]})"));
        m->clock->advance(500ms);
        m->settle();
        QCOMPARE(store().availableProviders(), QList<AuthProvider>{AuthProvider::github});
        QCOMPARE(m->transport->requests().last().url.host(), QStringLiteral("b.test"));
    }

    void thePromptIsOfferedOnceAnAccount()
    {
        m->tokens->save(QStringLiteral("token-1"));
        m->start();
        store().considerNotificationPrompt(NotificationPermission::allowed);
        QVERIFY(!store().showsNotificationPrompt());
        store().considerNotificationPrompt(NotificationPermission::denied);
        QVERIFY(store().showsNotificationPrompt());
        store().dismissNotificationPrompt();
        store().considerNotificationPrompt(NotificationPermission::notAsked);
        QVERIFY(!store().showsNotificationPrompt());
        store().signOut();
        store().considerNotificationPrompt(NotificationPermission::notAsked);
        QVERIFY(!store().showsNotificationPrompt());
        store().persistSession(QStringLiteral("next"), QUrl(QStringLiteral("https://pingwell.test")), Account());
        store().considerNotificationPrompt(NotificationPermission::notAsked);
        QVERIFY(store().showsNotificationPrompt());
    }
};

QTEST_GUILESS_MAIN(SignInTest)
#include "sign_in_test.moc"
