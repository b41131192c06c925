#include "desktop/preference_keys.h"
#include "store_fixture.h"

#include <QCryptographicHash>
#include <QJsonDocument>
#include <QTest>
#include <QUrlQuery>

#include <functional>

using namespace pingwell;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

const QByteArray exchange = "/auth/native/token";
const QByteArray session = R"({"token":"fresh","user":{"name":"Ada","provider":"github"}})";

} // namespace

class SignInTest : public StoreTest
{
    Q_OBJECT

    std::shared_ptr<WebAuthenticator> m_browser;
    QList<QUrl> m_opened;
    bool m_browserWorks = true;

    void comeBack(const QString &query)
    {
        m_browser->handleCallback(QUrl(u"pingwell://auth/callback"_s + query));
        m->settle();
    }

private slots:
    void init() override
    {
        StoreTest::init();
        m->tokens->clear();
        m->letLoopsFail();
        m->transport->always("GET", "/dashboard", ScriptedAnswer::data(DashboardJSON().body()));
        m->transport->always("GET", "/auth/user-data", ScriptedAnswer::raw(200, session));
        m_opened.clear();
        m_browserWorks = true;
        const auto open = [this](const QUrl &url) {
            m_opened << url;
            return m_browserWorks;
        };
        m_browser = std::make_shared<WebAuthenticator>(open, m->clock);
        m->signInWith(m_browser);
    }

    void cleanup() override
    {
        if (m_browser)
            m_browser->cancel();
        StoreTest::cleanup();
        m_browser.reset();
    }

    void theWholeFlow()
    {
        m->start();
        store().signIn(u"github"_s);
        store().signIn(u"google"_s);
        QCOMPARE(m_opened.size(), 1);
        const QUrl page = m_opened.first();
        QCOMPARE(page.path(), u"/auth/github"_s);
        QStringList names;
        for (const auto &[name, value] : QUrlQuery(page).queryItems())
            names << name;
        QCOMPARE(names.join(u' '), u"redirect_uri code_challenge code_challenge_method"_s);
        QVERIFY(store().isSigningIn());

        m->transport->plan("POST", exchange, ScriptedAnswer::raw(200, session));
        comeBack(u"?code=abc&scope=all"_s);
        comeBack(u"?code=abc&scope=all"_s);
        const HTTPRequest sent = m->transport->lastRequest("POST", exchange);
        QCOMPARE(headerOf(sent, "Authorization"), QByteArray());
        const QJsonObject body = QJsonDocument::fromJson(*sent.body).object();
        QCOMPARE(body.value(u"code"_s).toString(), u"abc"_s);
        const QByteArray verifier = body.value(u"code_verifier"_s).toString().toLatin1();
        QCOMPARE(verifier.size(), 43);
        QCOMPARE(QUrlQuery(page).queryItemValue(u"code_challenge"_s).toLatin1(),
                 QCryptographicHash::hash(verifier, QCryptographicHash::Sha256)
                     .toBase64(QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals));
        QVERIFY(!store().isSigningIn() && store().hasLoaded());
        QCOMPARE(store().account()->name, u"Ada"_s);
        QCOMPARE(m->tokens->load(), std::optional(u"fresh https://pingwell.test"_s));
        QCOMPARE(m->preferences->string(preference_keys::sessionBaseURL), std::optional(u"https://pingwell.test"_s));
    }

    void unsuccessfulEnds()
    {
        using Answer = ScriptedAnswer;
        const QString unfinished = u"Sign-in didn't finish. Try again."_s;
        const QString cancelled = u"Sign-in was cancelled."_s;
        QList<std::tuple<QString, Answer, QString>> rows{
            {u"?error=access_denied"_s, {}, cancelled},
            {u"?code=&error=access_denied"_s, {}, cancelled},
            {u"?error=provider_unavailable"_s, {}, u"That sign-in option isn't available on this server."_s},
            {u"?error=server_error"_s, {}, unfinished},
            {u"?error"_s, {}, unfinished},
            {u""_s, {}, unfinished},
            {u"?code=abc"_s, Answer::failure(400, "old", "That code is old."), u"That code is old."_s},
            {u"?code=abc"_s, Answer::raw(200, R"({"user":{}})"), unfinished},
            {u"?code=abc"_s, Answer::raw(200, R"({"token":"","user":{}})"), unfinished}};
        for (const QByteArray token : {R"(a\r\nX: b)", "a b", "\u00e9", R"(\u007f)"})
            rows.append({u"?code=abc"_s, Answer::raw(200, R"({"token":")" + token + R"(","user":{}})"),
                         u"Sign-in didn't finish: the server sent a token that Pingwell can't use."_s});
        for (const auto &[query, answer, message] : rows) {
            const InRow row = anew(query.toUtf8() + ' ' + answer.response.value_or(HTTPResponse()).body);
            m->start();
            store().signIn(u"google"_s);
            if (answer.response)
                m->transport->plan("POST", exchange, answer);
            comeBack(query);
            QCOMPARE(store().signInError().value_or(QString()), message);
            QVERIFY(!store().isSigningIn() && !store().isSignedIn());
            QVERIFY(m->preferences->keys().isEmpty());

            // It may have been any page's doing: the browser can still come back with what it was sent for.
            m->transport->plan("POST", exchange, Answer::raw(200, session).heldBack());
            comeBack(u"?code=real"_s);
            QVERIFY(store().isSigningIn() && !store().signInError());
            comeBack(u"?error=access_denied"_s);
            m->release("POST", exchange);
            QVERIFY(store().isSignedIn() && !store().isSigningIn() && !store().signInError());
            QCOMPARE(m_opened.size(), 1);
            QVERIFY(!m_browser->handleCallback(QUrl(u"pingwell://auth/callback?code=late"_s)));
        }
    }

    void aFailedAttemptStaysOpenUntil()
    {
        const std::pair<const char *, std::function<void()>> rows[] = {
            {"the person chooses another server",
             [this] { m->backend->baseURLOverride = QUrl(u"https://other.test"_s); }},
            {"its time is over", [this] { m->clock->advance(10min); }},
            {"a late session is there",
             [this] {
                 m->tokens->save(u"token-1"_s);
                 m->tokens->onBecameReadable();
             }},
            {"the person begins anew and gives up",
             [this] {
                 store().signIn(u"github"_s);
                 store().cancelSignIn();
             }},
            {"the person gives up during the exchange", [this] {
                 m->transport->plan("POST", exchange, ScriptedAnswer::raw(200, session).heldBack());
                 comeBack(u"?code=abc"_s);
                 store().cancelSignIn();
                 m->release("POST", exchange);
             }}};
        for (const auto &[name, end] : rows) {
            const InRow row = anew(name);
            m->start();
            store().signIn(u"google"_s);
            comeBack(u"?error=server_error"_s);
            end();
            m->settle();
            const qsizetype exchanged = m->transport->count("POST", exchange);
            comeBack(u"?code=late"_s);
            QCOMPARE(m->transport->count("POST", exchange), exchanged);
            QVERIFY(!store().isSigningIn() && (!store().client() || store().client()->token() == u"token-1"_s));
        }
    }

    void foreignCallbacksAreIgnored()
    {
        m->start();
        comeBack(u"?code=early"_s);
        store().signIn(u"google"_s);
        for (const QString &url : {u"https://auth/callback?code=x"_s, u"pingwell://other/callback?code=x"_s,
                                   u"pingwell://auth/elsewhere?code=x"_s, u"pingwell:"_s})
            QVERIFY(!m_browser->handleCallback(QUrl(url)));
        m->settle();
        QVERIFY(store().isSigningIn());
    }

    void givingUpSaysNothing()
    {
        m->start();
        store().signIn(u"google"_s);
        store().cancelSignIn();
        m->settle();
        QVERIFY(!store().isSigningIn() && !store().signInError());
        store().signIn(u"google"_s);
        m->clock->advance(9min);
        QVERIFY(store().isSigningIn());
        m->clock->advance(1min);
        m->settle();
        QVERIFY(!store().isSigningIn() && !store().signInError());
    }

    void aSessionThatComesLateWaitsForTheSignIn()
    {
        m->start();
        store().signIn(u"google"_s);
        m->tokens->save(u"token-1"_s);
        m->tokens->onBecameReadable();
        QVERIFY2(!store().isSignedIn(), "the person is about to choose another one");
        store().cancelSignIn();
        m->settle();
        QVERIFY(store().isSignedIn() && store().hasLoaded());
    }

    void whatFailedNowIsToldRatherThanWhatWasMissing()
    {
        m->tokens->save(u"token-1 https://other.test"_s);
        m->start();
        const auto missing = store().signInError();
        QVERIFY(missing->contains(u"other.test"_s));
        store().signIn(u"google"_s);
        comeBack(u"?error=access_denied"_s);
        QCOMPARE(store().signInError(), std::optional(u"Sign-in was cancelled."_s));
        store().signIn(u"google"_s);
        store().cancelSignIn();
        QCOMPARE(store().signInError(), missing);
    }

    void noBrowser()
    {
        m_browserWorks = false;
        m->start();
        store().signIn(u"google"_s);
        m->settle();
        QCOMPARE(store().signInError(), std::optional(u"Couldn't open the sign-in window."_s));
        QVERIFY(!store().isSigningIn());
        m_browserWorks = true;
        store().signIn(u"google"_s);
        QVERIFY2(!store().signInError(), "it is about the last attempt");
    }

    void anAddressIsNeeded()
    {
        m->backend->baseURLOverride.reset();
        m->start();
        store().setServer(ServerKind::selfHosted);
        store().signIn(u"google"_s);
        QVERIFY(store().signInError()->startsWith(u"Enter your server's address, like "_s));
        QVERIFY(!store().isSigningIn() && m_opened.isEmpty());
    }

    void providersOfTheChosenServer()
    {
        m->backend->baseURLOverride.reset();
        m->start();
        const auto answerWith = [](const QByteArray &providers) {
            return ScriptedAnswer::data("{\"providers\":" + providers + '}').heldBack();
        };
        m->transport->plan("GET", "/auth/providers", answerWith(R"(["gitlab","github","github"])"));
        store().setServer(ServerKind::selfHosted);
        store().setSelfHostedURL(u"a.test"_s);
        m->clock->advance(500ms);
        m->settle();
        QCOMPARE(m->transport->count("GET", "/auth/providers"), 1);
        store().setSelfHostedURL(u"b.test"_s);
        m->release();
        QCOMPARE(store().availableProviders().size(), 2);
        m->transport->plan("GET", "/auth/providers", answerWith(R"(["github","gitlab"])"));
        m->clock->advance(500ms);
        m->settle();
        m->release();
        QCOMPARE(store().availableProviders(), QList<AuthProvider>{AuthProvider::github});
        QCOMPARE(m->transport->requests().last().url.host(), u"b.test"_s);
    }
};

QTEST_GUILESS_MAIN(SignInTest)
#include "sign_in_test.moc"
