#include "auth/web_authenticator.h"
#include "screen_fixture.h"
#include "store/preference_keys.h"
#include "store_fixture.h"

#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>
#include <QTest>

using namespace pingwell;

namespace {

const QString google = QStringLiteral("signin.google");
const QString github = QStringLiteral("signin.github");
const QString cloud = QStringLiteral("signin.server.cloud");
const QString selfHosted = QStringLiteral("signin.server.selfHosted");
const QString address = QStringLiteral("signin.server.selfHosted.url");
const QString addressError = QStringLiteral("signin.server.selfHosted.error");

QAccessibleInterface *accessible(const Screen &screen, const QString &identifier)
{
    return QAccessible::queryAccessibleInterface(screen.find(identifier));
}

QString value(const Screen &screen, const QString &identifier)
{
    return accessible(screen, identifier)->text(QAccessible::Description);
}

} // namespace

class SignInViewTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<StoreFixture> m;
    std::shared_ptr<WebAuthenticator> m_browser;

private slots:
    void init()
    {
        m = std::make_unique<StoreFixture>();
        m->tokens->clear();
        m_browser = std::make_shared<WebAuthenticator>([](const QUrl &) { return true; }, m->clock);
        m->backend->authenticate = [browser = m_browser](QUrl url, QString scheme) {
            return browser->authenticate(url, scheme);
        };
        m->backend->cancelAuthentication = [browser = m_browser] { browser->cancel(); };
        m->transport->always("GET", "/auth/providers", ScriptedAnswer::noAnswer());
    }

    void cleanup()
    {
        m_browser->cancel();
        m.reset();
    }

    void offersWhatTheServerOffers_data()
    {
        QTest::addColumn<QByteArray>("offered");
        QTest::addColumn<QStringList>("shown");
        QTest::newRow("nothing") << QByteArray("[]") << QStringList();
        QTest::newRow("one") << QByteArray(R"(["github"])") << QStringList{github};
        QTest::newRow("both, in our order") << QByteArray(R"(["github","google"])") << QStringList{google, github};
    }

    void offersWhatTheServerOffers()
    {
        QFETCH(QByteArray, offered);
        QFETCH(QStringList, shown);
        m->transport->always("GET", "/auth/providers", ScriptedAnswer::data(R"({"providers":)" + offered + "}"));
        m->start();
        Screen screen(QStringLiteral("RootView"), *m->store);
        QTRY_COMPARE(screen.count(QStringLiteral("signin\\.(google|github)")), int(shown.size()));
        double above = screen.find(QStringLiteral("signin.title"))->mapToScene(QPointF()).y();
        for (const QString &button : shown) {
            QVERIFY(screen.shows(button));
            const double top = screen.find(button)->mapToScene(QPointF()).y();
            QVERIFY(top > above);
            above = top;
        }
        QVERIFY(screen.shows(cloud));
    }

    void signInCanBeCancelledAndItsLinkCopied()
    {
        m->start();
        Screen screen(QStringLiteral("RootView"), *m->store);
        QVERIFY(!screen.shows(QStringLiteral("signin.progress")));
        screen.click(github);
        QVERIFY(screen.store().isSigningIn());
        QCOMPARE(screen.name(QStringLiteral("signin.progress")),
                 QStringLiteral("Finish signing in in the window that opened…"));
        QCOMPARE(screen.name(QStringLiteral("signin.host")), screen.store().effectiveBaseURL()->host());
        QVERIFY(!screen.find(google)->isEnabled());
        QVERIFY(!screen.find(github)->isEnabled());

        screen.click(QStringLiteral("signin.copyLink"));
        const QUrl link(QGuiApplication::clipboard()->text());
        QCOMPARE(link.path(), QStringLiteral("/auth/github"));
        QCOMPARE(screen.name(QStringLiteral("toast")), QStringLiteral("Link copied."));

        screen.click(QStringLiteral("signin.cancel"));
        QTRY_VERIFY(!screen.store().isSigningIn());
        screen.settle();
        QVERIFY(!screen.shows(QStringLiteral("signin.progress")));
        QVERIFY(!screen.shows(QStringLiteral("signin.error")));
        QVERIFY(screen.find(google)->isEnabled());
    }

    void refusedSignInSaysWhy()
    {
        m->start();
        Screen screen(QStringLiteral("RootView"), *m->store);
        screen.click(google);
        m_browser->handleCallback(QUrl(QStringLiteral("pingwell://auth/callback?error=access_denied")));
        QTRY_COMPARE(screen.name(QStringLiteral("signin.error")), QStringLiteral("Sign-in was cancelled."));
    }

    void serverIsChosenByPointerAndKept()
    {
        m->start();
        Screen screen(QStringLiteral("RootView"), *m->store);
        QCOMPARE(value(screen, cloud), QStringLiteral("selected"));
        QCOMPARE(value(screen, selfHosted), QStringLiteral("not selected"));
        QVERIFY(!screen.shows(address));
        screen.click(selfHosted);
        QCOMPARE(value(screen, cloud), QStringLiteral("not selected"));
        QCOMPARE(value(screen, selfHosted), QStringLiteral("selected"));
        QVERIFY(accessible(screen, selfHosted)->state().checked);
        QCOMPARE(accessible(screen, selfHosted)->role(), QAccessible::RadioButton);
        QCOMPARE(m->preferences->string(preference_keys::serverKind), QStringLiteral("selfHosted"));

        screen.click(address);
        screen.type(QStringLiteral("alerts.example.org"));
        QCOMPARE(m->preferences->string(preference_keys::selfHostedURL), QStringLiteral("alerts.example.org"));
        QCOMPARE(screen.store().selfHostedURL(), QStringLiteral("alerts.example.org"));
    }

    void serverIsChosenByKeyboard()
    {
        m->start();
        Screen screen(QStringLiteral("RootView"), *m->store);
        screen.find(cloud)->forceActiveFocus(Qt::TabFocusReason);
        screen.press(Qt::Key_Down);
        QCOMPARE(screen.store().server(), ServerKind::selfHosted);
        QCOMPARE(screen.focused(), selfHosted);
        screen.press(Qt::Key_Tab);
        QCOMPARE(screen.focused(), address);
        screen.press(Qt::Key_Backtab);
        QCOMPARE(screen.focused(), selfHosted);
        screen.press(Qt::Key_Backtab);
        QCOMPARE(screen.focused(), github);
        screen.find(selfHosted)->forceActiveFocus(Qt::TabFocusReason);
        screen.press(Qt::Key_Up);
        QCOMPARE(screen.store().server(), ServerKind::cloud);
        QCOMPARE(screen.focused(), cloud);
    }

    void addressIsCheckedWhileTyping_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<bool>("wrong");
        QTest::newRow("nothing") << QString() << false;
        QTest::newRow("host alone") << QStringLiteral("alerts.example.org") << false;
        QTest::newRow("plain http") << QStringLiteral("http://10.0.0.5:8080/") << false;
        QTest::newRow("blank") << QStringLiteral("  ") << true;
        QTest::newRow("another scheme") << QStringLiteral("ftp://alerts.example.org") << true;
        QTest::newRow("scheme alone") << QStringLiteral("https://") << true;
    }

    void addressIsCheckedWhileTyping()
    {
        QFETCH(QString, typed);
        QFETCH(bool, wrong);
        m->start();
        m->store->setServer(ServerKind::selfHosted);
        Screen screen(QStringLiteral("RootView"), *m->store);
        screen.click(address);
        screen.type(typed);
        QCOMPARE(screen.shows(addressError), wrong);
        if (wrong)
            QCOMPARE(screen.name(addressError), QStringLiteral("Use an http:// or https:// address."));
    }

    void keyboardReachesWhatALowWindowHides()
    {
        m->start();
        m->store->setServer(ServerKind::selfHosted);
        Screen screen(QStringLiteral("RootView"), *m->store);
        screen.view().resize(760, 400);
        screen.settle();
        const QQuickItem *const field = screen.find(address);
        const auto bottom = [field] { return field->mapToScene(QPointF(0, field->height())).y(); };
        QVERIFY(bottom() > 400);
        screen.find(address)->forceActiveFocus(Qt::TabFocusReason);
        screen.settle();
        QVERIFY(bottom() <= 400);
        screen.find(google)->forceActiveFocus(Qt::TabFocusReason);
        screen.settle();
        QVERIFY(screen.find(google)->mapToScene(QPointF()).y() >= 0);
    }
};

QTEST_MAIN(SignInViewTest)
#include "sign_in_view_test.moc"
