#include "app/make_store.h"
#include "store/preference_keys.h"
#include "support/manual_clock.h"
#include "support/memory_preferences.h"
#include "support/scripted_transport.h"

#include <QTest>

using namespace pingwell;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

/// Holds no item, and remembers that it was asked for one.
class EmptyKeychain final : public Keychain
{
public:
    KeychainItem copyMatching(const QString &, const QString &) override
    {
        return {.status = KeychainStatus::itemNotFound, .data = {}};
    }
    KeychainStatus store(const QString &, const QString &, const QByteArray &) override
    {
        return KeychainStatus::unavailable;
    }
    KeychainStatus remove(const QString &, const QString &) override { return KeychainStatus::unavailable; }
    KeychainStatus unlock(std::stop_token) override { return KeychainStatus::unavailable; }
};

} // namespace

/// Each mode with the pieces of the system in memory, counting what was opened.
class MakeStoreTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void uiTestStartsCleanAndSignedIn();
    void uiTestCanStartSignedOut();
    void demoRemembersNothing();
    void liveTestStartsClean();
    void livePrefersTheGivenSessionAndServer();
    void theClockRuns();

private:
    std::unique_ptr<AppStore> make(const LaunchOptions &options);

    QMap<QString, std::shared_ptr<MemoryPreferences>> m_domains;
    std::shared_ptr<ScriptedTransport> m_transport;
    std::shared_ptr<ManualClock> m_clock;
    int m_keychainsOpened = 0;
    int m_transportsOpened = 0;
};

void MakeStoreTest::init()
{
    m_domains.clear();
    for (const QString &domain :
         {u"com.pingwell.mac"_s, u"com.pingwell.mac.uitest"_s, u"com.pingwell.mac.uitest-live"_s}) {
        m_domains.insert(domain, std::make_shared<MemoryPreferences>());
        m_domains.value(domain)->setString(preference_keys::selfHostedURL, u"left.example"_s);
    }
    m_transport = std::make_shared<ScriptedTransport>();
    m_clock = std::make_shared<ManualClock>(instantFromMilliseconds(1'700'000'000'000.0));
    m_keychainsOpened = 0;
    m_transportsOpened = 0;
}

std::unique_ptr<AppStore> MakeStoreTest::make(const LaunchOptions &options)
{
    const StoreParts parts{
        .openStandardPreferences = [this] { return m_domains.value(u"com.pingwell.mac"_s); },
        .openSuite = [this](const QString &name) { return m_domains.value(name); },
        .openKeychain =
            [this] {
                ++m_keychainsOpened;
                return std::make_shared<EmptyKeychain>();
            },
        .openTransport =
            [this] {
                ++m_transportsOpened;
                return m_transport;
            },
        .openNotifier = {},
        .authenticate = {},
        .cancelAuthentication = {},
        .clock = m_clock,
        .hostName = u"workbench"_s,
        .version = u"1.2.3"_s,
    };
    return makeStore(options, openPreferences(options, parts), parts);
}

void MakeStoreTest::uiTestStartsCleanAndSignedIn()
{
    const auto store = make({.isUITest = true, .isDemo = true});
    QVERIFY(store->isSignedIn() && !store->isLive() && store->hasLoaded());
    QVERIFY(store->selfHostedURL().isEmpty());
    QCOMPARE(store->activeWorkspaceID(), u"w1"_s);
    QCOMPARE(store->needsReplyCount(), qsizetype(3));
    QCOMPARE(m_transportsOpened + m_keychainsOpened, 0);
    QVERIFY(m_domains[u"com.pingwell.mac"_s]->contains(preference_keys::selfHostedURL));
}

void MakeStoreTest::uiTestCanStartSignedOut()
{
    m_domains[u"com.pingwell.mac.uitest"_s]->setString(preference_keys::sessionProvider, u"github"_s);
    const auto store = make({.isUITest = true, .isDemo = true, .signedOut = true});
    QVERIFY(!store->isSignedIn());
    QVERIFY(!m_domains[u"com.pingwell.mac.uitest"_s]->contains(preference_keys::sessionProvider));
}

void MakeStoreTest::demoRemembersNothing()
{
    const auto store = make({.isDemo = true});
    QCOMPARE(store->account()->name, u"Robin Vale"_s);
    QCOMPARE(store->account()->provider, AuthProvider::google);
    store->setSelfHostedURL(u"new.example"_s);
    store->setRead(u"a7"_s, false);
    for (const auto &domain : std::as_const(m_domains))
        QCOMPARE(domain->string(preference_keys::selfHostedURL), u"left.example"_s);
    QCOMPARE(m_transportsOpened + m_keychainsOpened, 0);
}

void MakeStoreTest::liveTestStartsClean()
{
    const auto store = make({.isLiveUITest = true});
    QVERIFY(store->isLive() && !store->isSignedIn() && !store->hasLoaded());
    QVERIFY(store->alerts().isEmpty() && store->workspaces().isEmpty());
    QVERIFY(m_domains[u"com.pingwell.mac.uitest-live"_s]->keys().isEmpty());
    QVERIFY(!m_domains[u"com.pingwell.mac"_s]->keys().isEmpty());
}

/// The session and server handed in from outside are used, and the first round of the live loop runs at once.
void MakeStoreTest::livePrefersTheGivenSessionAndServer()
{
    m_transport->always("GET", "/base/dashboard", ScriptedAnswer::noAnswer());
    m_transport->always("GET", "/base/auth/me", ScriptedAnswer::noAnswer());
    m_transport->always("GET", "/base/invitations", ScriptedAnswer::noAnswer());
    m_transport->always("POST", "/base/devices/register", ScriptedAnswer::noAnswer());
    const auto store = make({.apiBaseURL = QUrl(u"https://a.example/base"_s), .sessionToken = u"secret"_s});
    QVERIFY(store->isSignedIn());
    QCOMPARE(m_keychainsOpened, 0);
    QCOMPARE(store->selfHostedURL(), u"left.example"_s);
    QTRY_VERIFY(!m_transport->requests().isEmpty());
    const HTTPRequest first = m_transport->requests().first();
    QCOMPARE(first.url.host(), u"a.example"_s);
    QCOMPARE(headerOf(first, "Authorization"), QByteArray("Bearer secret"));
}

void MakeStoreTest::theClockRuns()
{
    const auto store = make({.isDemo = true});
    const Instant start = store->now();
    m_clock->advance(1s);
    QTRY_COMPARE(store->now(), start + Seconds(1));
}

QTEST_GUILESS_MAIN(MakeStoreTest)
#include "make_store_test.moc"
