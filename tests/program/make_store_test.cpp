#include "desktop/preference_keys.h"
#include "program/command_line.h"
#include "program/make_store.h"
#include "support/fake_keychain.h"
#include "support/manual_clock.h"
#include "support/memory_preferences.h"
#include "support/recording_notifier.h"
#include "support/scripted_transport.h"

#include <QTest>
#include <QThreadPool>

using namespace pingwell;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

/// Each mode with the pieces of the system in memory, counting what was opened.
class MakeStoreTest : public QObject
{
    Q_OBJECT

private:
    QMap<QString, std::shared_ptr<MemoryPreferences>> m_domains;
    std::shared_ptr<ScriptedTransport> m_transport = std::make_shared<ScriptedTransport>();
    std::shared_ptr<ManualClock> m_clock = std::make_shared<ManualClock>(instantFromMilliseconds(1'700'000'000'000.0));
    QStringList m_opened;
    QString m_hostName;
    QString m_version;

    std::unique_ptr<AppStore> make(const LaunchOptions &options)
    {
        const StoreParts parts{
            .openStandardPreferences = [this] { return m_domains.value(u"com.pingwell.mac"_s); },
            .openSuite = [this](const QString &name) { return m_domains.value(name); },
            .openKeychain = [this] { return m_opened << u"keychain"_s, std::make_shared<FakeKeychain>(); },
            .openTransport = [this] { return m_opened << u"transport"_s, m_transport; },
            .openNotifier = [this] { return m_opened << u"notifier"_s, std::make_shared<RecordingNotifier>(); },
            .authenticate = {},
            .cancelAuthentication = {},
            .clock = m_clock,
            .hostName = m_hostName,
            .version = m_version,
        };
        return makeStore(options, openPreferences(options, parts), parts);
    }

private slots:
    // Lets what a store of the last test had under way come to its end.
    void cleanup()
    {
        QThreadPool::globalInstance()->waitForDone();
        QCoreApplication::processEvents();
    }

    void parse()
    {
        const std::pair<QStringList, LaunchOptions> cases[] = {
            {{u"-uitest"_s}, {.isUITest = true, .isDemo = true}},
            {{u"-uitest-live"_s}, {.isLiveUITest = true}},
            {{u"-uitest-popover"_s, u"-uitest-signed-out"_s, u"-uitest"_s},
             {.isUITest = true, .isDemo = true, .signedOut = true, .popoverPreview = true}},
            {{u"-uitest2"_s, u"x-demo"_s, u"--demo"_s}, {}},
            {{u"-demo"_s, u"-apiBaseURL"_s}, {.isDemo = true}},
            {{u"-apiBaseURL"_s, u"a.example"_s, u"-apiBaseURL"_s, u"b.example"_s},
             {.apiBaseURL = QUrl(u"https://a.example"_s)}},
            {{u"-demo"_s, u"-apiBaseURL"_s, u"ftp://a.example"_s}, {.isDemo = true}}};
        for (const auto &[arguments, expected] : cases) {
            QVERIFY2(LaunchOptions::parse(QStringList(u"pingwell"_s) + arguments, {}) == expected,
                     qPrintable(arguments.join(u' ')));
            QCOMPARE(handOverNote(expected).has_value(), expected.apiBaseURL.has_value());
        }
        QProcessEnvironment hosted;
        hosted.insert(u"XCTestConfigurationFilePath"_s, QString());
        QVERIFY2(LaunchOptions::parse({u"pingwell"_s}, hosted) == LaunchOptions{.isDemo = true}, "a test runner's");
    }

    void init()
    {
        m_domains.clear();
        for (const QString &domain : {QString(), u".uitest"_s, u".uitest-live"_s}) {
            const auto preferences = std::make_shared<MemoryPreferences>();
            preferences->setString(preference_keys::selfHostedURL, u"left.example"_s);
            m_domains.insert(u"com.pingwell.mac"_s + domain, preferences);
        }
        m_opened.clear();
    }

    void uiTestStartsClean()
    {
        const auto store = make({.isUITest = true, .isDemo = true});
        QVERIFY(store->isSignedIn() && !store->isLive() && store->hasLoaded());
        QVERIFY(store->selfHostedURL().isEmpty());
        QCOMPARE(store->needsReplyCount(), qsizetype(3));
        // As the pickers of the settings offer it.
        QVERIFY(store->settings().quietTo.endsWith(u":00"_s));
        m_domains[u"com.pingwell.mac.uitest"_s]->setString(preference_keys::sessionProvider, u"github"_s);
        QVERIFY(!make({.isUITest = true, .isDemo = true, .signedOut = true})->isSignedIn());
        QVERIFY(m_opened.isEmpty());
        QVERIFY(m_domains[u"com.pingwell.mac"_s]->contains(preference_keys::selfHostedURL));
    }

    void demoRemembersNothing()
    {
        const auto store = make({.isDemo = true});
        QVERIFY(store->isSignedIn());
        store->setSelfHostedURL(u"new.example"_s);
        store->setRead(u"a7"_s, false);
        for (const auto &domain : std::as_const(m_domains))
            QCOMPARE(domain->string(preference_keys::selfHostedURL), u"left.example"_s);
        QVERIFY(m_opened.isEmpty());
        const Instant start = store->now();
        m_clock->advance(1s);
        QTRY_COMPARE(store->now(), start + Seconds(1));
    }

    void liveTestStartsClean()
    {
        const auto store = make({.isLiveUITest = true});
        QVERIFY(store->isLive() && !store->isSignedIn() && !store->hasLoaded() && store->alerts().isEmpty());
        QCOMPARE(m_opened, (QStringList{u"keychain"_s, u"transport"_s}));
        QVERIFY(m_domains[u"com.pingwell.mac.uitest-live"_s]->keys().isEmpty());
        QVERIFY(!m_domains[u"com.pingwell.mac"_s]->keys().isEmpty());
        m_domains[u"com.pingwell.mac"_s]->setBoolean(preference_keys::sessionErasingOwed, true);
        const auto own = make({});
        QTRY_VERIFY2(m_domains[u"com.pingwell.mac"_s]->flushes > 0, "the keyring is changed first");
    }

    /// The session and server handed in from outside are used, and the first round of the live loop runs at once.
    void livePrefersTheGivenSessionAndServer()
    {
        for (const char *path : {"/base/dashboard", "/base/auth/user-data", "/base/invites"})
            m_transport->always("GET", path, ScriptedAnswer::noAnswer());
        m_transport->always("POST", "/base/devices", ScriptedAnswer::noAnswer());
        m_hostName = u"workbench"_s;
        m_version = u"1.2.3"_s;
        const auto store = make({.apiBaseURL = QUrl(u"https://a.example/base"_s), .sessionToken = u"secret"_s});
        QVERIFY(store->isSignedIn());
        QCOMPARE(m_opened, (QStringList{u"transport"_s, u"notifier"_s}));
        QCOMPARE(store->selfHostedURL(), u"left.example"_s);
        QTRY_COMPARE(m_transport->count("GET", "/base/invites"), 1);
        QCOMPARE(m_transport->lastRequest("POST", "/base/devices").body,
                 QByteArray(R"({"name":"workbench","platform":"macos","version":"1.2.3"})"));
        const HTTPRequest first = m_transport->requests().first();
        QCOMPARE(first.url.host(), u"a.example"_s);
        QCOMPARE(headerOf(first, "Authorization"), QByteArray("Bearer secret"));
    }
};

QTEST_GUILESS_MAIN(MakeStoreTest)
#include "make_store_test.moc"
