#include "desktop/preference_keys.h"
#include "screen_fixture.h"
#include "ui/signin/server_address.h"

#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>
#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

namespace {

const QString google = u"signin.google"_s;
const QString github = u"signin.github"_s;
const QString cloud = u"signin.server.cloud"_s;
const QString selfHosted = u"signin.server.selfHosted"_s;
const QString address = u"signin.server.selfHosted.url"_s;
const QString addressError = u"signin.server.selfHosted.error"_s;
const QString addressWarning = u"signin.server.selfHosted.warning"_s;

} // namespace

class SignInViewTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<StoreFixture> m;
    std::shared_ptr<WebAuthenticator> m_browser;
    std::unique_ptr<Screen> m_screen;

    /// The main window of somebody who is signed out.
    Screen &show(ServerKind server = ServerKind::cloud)
    {
        m->start();
        m->store->setServer(server);
        m_screen = std::make_unique<Screen>(u"RootView"_s, *m->store);
        return *m_screen;
    }

private slots:
    void init()
    {
        m = std::make_unique<StoreFixture>();
        m->tokens->clear();
        m_browser = std::make_shared<WebAuthenticator>([](const QUrl &) { return true; }, m->clock);
        m->signInWith(m_browser);
    }

    void cleanup()
    {
        m_browser->cancel();
        m_screen.reset();
        m.reset();
    }

    void offersWhatTheServerOffers()
    {
        for (const auto &[offered, shown] : {std::pair(QByteArray("[]"), QStringList()),
                                             {R"(["github"])", {github}},
                                             {R"(["github","google"])", {google, github}}}) {
            m->transport->always("GET", "/auth/providers", ScriptedAnswer::data(R"({"providers":)" + offered + "}"));
            const Screen &screen = show();
            QTRY_COMPARE(screen.count(u"signin\\.(google|github)"_s), int(shown.size()));
            double above = screen.place(u"signin.title"_s).y();
            for (const QString &button : shown) {
                QVERIFY(screen.place(button).y() > above);
                above = screen.place(button).y();
            }
            QVERIFY(screen.shows(cloud));
        }
    }

    void signInCanBeCancelledAndItsLinkCopied()
    {
        Screen &screen = show();
        QVERIFY(!screen.shows(u"signin.progress"_s));
        screen.click(github);
        QCOMPARE(screen.name(u"signin.progress"_s), u"Finish signing in in the window that opened…"_s);
        QCOMPARE(screen.name(u"signin.host"_s), screen.store().effectiveBaseURL()->host());
        QVERIFY(!screen.canUse(google) && !screen.canUse(github));

        screen.click(u"signin.copyLink"_s);
        QCOMPARE(QUrl(QGuiApplication::clipboard()->text()).path(), u"/auth/github"_s);
        QCOMPARE(screen.name(u"toast"_s), u"Link copied."_s);

        screen.click(u"signin.cancel"_s);
        QTRY_VERIFY(!screen.store().isSigningIn());
        QVERIFY(!screen.shows(u"signin.progress"_s) && !screen.shows(u"signin.error"_s));
        QVERIFY(screen.canUse(google));
    }

    void serverIsChosenByPointerAndKept()
    {
        Screen &screen = show();
        QCOMPARE(screen.value(cloud), u"selected"_s);
        QVERIFY(!screen.shows(address));
        screen.click(selfHosted);
        QCOMPARE(screen.value(cloud), u"not selected"_s);
        QCOMPARE(screen.value(selfHosted), u"selected"_s);
        auto *const accessible = QAccessible::queryAccessibleInterface(screen.find(selfHosted));
        QVERIFY(accessible->role() == QAccessible::RadioButton && accessible->state().checked);

        screen.click(address);
        screen.type(u"alerts.example.org"_s);
        QCOMPARE(m->preferences->string(preference_keys::serverKind), u"selfHosted"_s);
        QCOMPARE(m->preferences->string(preference_keys::selfHostedURL), u"alerts.example.org"_s);
    }

    void serverIsChosenByKeyboard()
    {
        Screen &screen = show();
        screen.find(cloud)->forceActiveFocus(Qt::TabFocusReason);
        screen.press(Qt::Key_Down);
        QCOMPARE(screen.store().server(), ServerKind::selfHosted);
        QCOMPARE(screen.focused(), selfHosted);
        screen.press(Qt::Key_Tab);
        QCOMPARE(screen.focused(), address);
        screen.press({Qt::Key_Backtab, Qt::Key_Backtab});
        QCOMPARE(screen.focused(), github);
        screen.find(selfHosted)->forceActiveFocus(Qt::TabFocusReason);
        screen.press(Qt::Key_Up);
        QCOMPARE(screen.store().server(), ServerKind::cloud);
        QCOMPARE(screen.focused(), cloud);
    }

    void addressIsCheckedWhileTyping()
    {
        Screen &screen = show(ServerKind::selfHosted);
        screen.click(address);
        QVERIFY(!screen.shows(addressError));
        screen.type(u"ftp://x"_s);
        QCOMPARE(screen.name(addressError), u"Use an http:// or https:// address."_s);
        screen.press(Qt::CTRL | Qt::Key_A);
        screen.type(u"http://alerts.example.org"_s);
        QVERIFY(!screen.shows(addressError));
        QVERIFY(screen.name(addressWarning).startsWith(u"This address isn't encrypted."_s));
        screen.press(Qt::Key_Home);
        screen.type(u"https://alerts.example.org/?"_s);
        QVERIFY(screen.shows(addressError) && !screen.shows(addressWarning));
    }

    void plainAddressesAreOpenExceptOfThisMachine()
    {
        for (const char *typed :
             {"http://alerts.example.org", "HTTP://192.168.1.7:8080", "http://localhost.example.org", "http://[::2]"})
            QVERIFY2(ServerAddress().isOpen(QString::fromLatin1(typed)), typed);
        for (const char *typed : {"https://alerts.example.org", "alerts.example.org", "http://LOCALHOST:8080",
                                  "http://127.3.2.1", "http://[::1]:8080/base", "http://"})
            QVERIFY2(!ServerAddress().isOpen(QString::fromLatin1(typed)), typed);
    }

    void namesTheServerThatIsNotTheManagedOne()
    {
        m->backend->baseURLOverride = QUrl(u"http://127.0.0.1:8080"_s);
        Screen &screen = show();
        QVERIFY(screen.name(u"signin.server.fixed"_s).contains(u"127.0.0.1:8080"_s));
        const Screen panel(u"PopoverView"_s, *m->store);
        const auto name = [&screen] { return screen.name(u"sidebar.account"_s); };
        m->store->persistSession(u"token"_s, QUrl(u"https://alerts.example.org:8443"_s),
                                 demoAccount(AuthProvider::google));
        m->refreshWith(DashboardJSON());
        QVERIFY(name().endsWith(u", Pingwell Cloud, alerts.example.org:8443"_s));
        m->store->setSection(SidebarSection::settings);
        QCOMPARE(screen.value(u"settings.server.name"_s), u"Pingwell Cloud"_s);
        QCOMPARE(screen.value(u"settings.server.host"_s), u"alerts.example.org:8443"_s);
        QCOMPARE(panel.name(u"popover.server"_s), u"alerts.example.org:8443"_s);
        QCOMPARE(panel.name(u"popover.status"_s), u"Connected · Pingwell Cloud"_s);

        m->store->endSession({});
        m->store->persistSession(u"token"_s, APIClient::defaultBaseURL(), demoAccount(AuthProvider::google));
        m->refreshWith(DashboardJSON());
        QVERIFY(name().endsWith(u", Pingwell Cloud"_s));
    }
};

QTEST_MAIN(SignInViewTest)
#include "sign_in_view_test.moc"
