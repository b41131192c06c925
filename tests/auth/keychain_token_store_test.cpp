#include "auth/keychain_token_store.h"
#include "fake_keychain.h"

#include <QElapsedTimer>
#include <QTest>

using namespace pingwell;


namespace {

/// A store over a keychain of the test's own, with its reports counted.
struct Fixture
{
    std::shared_ptr<FakeKeychain> keychain = std::make_shared<FakeKeychain>();
    std::unique_ptr<KeychainTokenStore> store;
    int becameReadable = 0;
    int notKept = 0;

    void open()
    {
        store = std::make_unique<KeychainTokenStore>(keychain, QStringLiteral("s"), QStringLiteral("a"));
        store->onBecameReadable = [this] { ++becameReadable; };
        store->onNotKept = [this] { ++notKept; };
    }
};

using Token = std::optional<QString>;
const Token none;

} // namespace

class KeychainTokenStoreTest : public QObject
{
    Q_OBJECT

private slots:
    void loadsWhatTheKeychainHolds_data();
    void loadsWhatTheKeychainHolds();
    void reportsATokenOutOfReachAtLoad_data();
    void reportsATokenOutOfReachAtLoad();
    void loadWaitsABoundedTimeForASlowKeychain();
    void givesUpWhenThePersonRefuses();
    void clearedTokenStaysClearedWhenTheLookUpIsLate();
    void newTokenEndsTheWaitForTheOldOne();
    void saveThenClearLeavesNothingBehind();
    void saveOpensALockedKeychain();
    void reportsATokenThatIsNotKept_data();
    void reportsATokenThatIsNotKept();
    void writesBeforeItEnds();
    void endsThoughTheKeychainHangs();
};

void KeychainTokenStoreTest::loadsWhatTheKeychainHolds_data()
{
    QTest::addColumn<KeychainStatus>("status");
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QString>("token");
    QTest::newRow("token") << KeychainStatus::success << QByteArray("tøken") << QStringLiteral("tøken");
    QTest::newRow("empty") << KeychainStatus::success << QByteArray("") << QString();
    QTest::newRow("not UTF-8") << KeychainStatus::success << QByteArray("to\xffken") << QString();
    QTest::newRow("cut UTF-8") << KeychainStatus::success << QByteArray("tok\xc3") << QString();
    QTest::newRow("absent") << KeychainStatus::itemNotFound << QByteArray("x") << QString();
}

void KeychainTokenStoreTest::loadsWhatTheKeychainHolds()
{
    QFETCH(KeychainStatus, status);
    QFETCH(QByteArray, data);
    QFETCH(QString, token);
    Fixture f;
    f.keychain->setItem(data);
    f.keychain->setStatus(status);
    f.open();
    QCOMPARE(f.store->load(), token.isEmpty() ? none : Token(token));
    f.store.reset();
    QCOMPARE(f.keychain->calls(), QStringList{QStringLiteral("copy s/a")});
}

void KeychainTokenStoreTest::reportsATokenOutOfReachAtLoad_data()
{
    QTest::addColumn<KeychainStatus>("status");
    QTest::addColumn<KeychainStatus>("statusAfterUnlock");
    QTest::newRow("locked") << KeychainStatus::locked << KeychainStatus::success;
    QTest::newRow("starting") << KeychainStatus::unavailable << KeychainStatus::success;
    QTest::newRow("starting, then locked") << KeychainStatus::unavailable << KeychainStatus::locked;
}

void KeychainTokenStoreTest::reportsATokenOutOfReachAtLoad()
{
    QFETCH(KeychainStatus, status);
    QFETCH(KeychainStatus, statusAfterUnlock);
    Fixture f;
    f.keychain->setItem("token");
    f.keychain->setStatus(status);
    f.open();
    QCOMPARE(f.store->load(), none);

    f.keychain->answerUnlock(KeychainStatus::success, statusAfterUnlock);
    if (statusAfterUnlock == KeychainStatus::locked) {
        QTRY_COMPARE(f.keychain->calls().count(QStringLiteral("unlock")), 2);
        f.keychain->answerUnlock(KeychainStatus::success, KeychainStatus::success);
    }
    QTRY_COMPARE(f.becameReadable, 1);
    QCOMPARE(f.store->load(), Token(QStringLiteral("token")));
}

void KeychainTokenStoreTest::loadWaitsABoundedTimeForASlowKeychain()
{
    Fixture f;
    f.keychain->setItem("token");
    f.keychain->hold();
    f.open();
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(f.store->load(), none);
    QCOMPARE(f.store->load(), none);
    QVERIFY2(timer.elapsed() < 900, "a second load must not wait again");

    f.keychain->release();
    QTRY_COMPARE(f.becameReadable, 1);
    QCOMPARE(f.store->load(), Token(QStringLiteral("token")));
}

void KeychainTokenStoreTest::givesUpWhenThePersonRefuses()
{
    Fixture f;
    f.keychain->setItem("token");
    f.keychain->setStatus(KeychainStatus::locked);
    f.open();
    QCOMPARE(f.store->load(), none);
    QTRY_VERIFY(f.keychain->calls().contains(QStringLiteral("unlock")));
    f.keychain->answerUnlock(KeychainStatus::locked, KeychainStatus::locked);
    f.store.reset();
    const QStringList calls{QStringLiteral("copy s/a"), QStringLiteral("unlock")};
    QCOMPARE(f.keychain->calls(), calls);
    QCOMPARE(f.becameReadable, 0);
}

void KeychainTokenStoreTest::clearedTokenStaysClearedWhenTheLookUpIsLate()
{
    Fixture f;
    f.keychain->setItem("old");
    f.keychain->hold();
    f.open();
    QCOMPARE(f.store->load(), none);
    f.store->clear();
    f.keychain->release();
    QTRY_COMPARE(f.keychain->item(), std::optional<QByteArray>());
    QCOMPARE(f.store->load(), none);
    QCoreApplication::processEvents();
    QCOMPARE(f.becameReadable, 0);
}

void KeychainTokenStoreTest::newTokenEndsTheWaitForTheOldOne()
{
    Fixture f;
    f.keychain->setItem("old");
    f.keychain->setStatus(KeychainStatus::unavailable);
    f.open();
    QCOMPARE(f.store->load(), none);
    QTRY_VERIFY(f.keychain->calls().contains(QStringLiteral("unlock")));
    f.keychain->setStatus(KeychainStatus::success);
    f.store->save(QStringLiteral("new"));
    QCOMPARE(f.store->load(), Token(QStringLiteral("new")));
    QTRY_COMPARE(f.keychain->item(), std::optional<QByteArray>("new"));
    QCOMPARE(f.becameReadable, 0);
    QCOMPARE(f.notKept, 0);
}

void KeychainTokenStoreTest::saveThenClearLeavesNothingBehind()
{
    Fixture f;
    f.open();
    QCOMPARE(f.store->load(), none);
    f.keychain->hold();
    f.store->save(QStringLiteral("token"));
    QTRY_VERIFY(f.keychain->calls().contains(QStringLiteral("store")));
    f.store->clear();
    QCOMPARE(f.store->load(), none);
    f.keychain->release();
    f.store.reset();
    QCOMPARE(f.keychain->calls().last(), QStringLiteral("remove"));
    QCOMPARE(f.keychain->item(), std::optional<QByteArray>());
}

void KeychainTokenStoreTest::saveOpensALockedKeychain()
{
    Fixture f;
    f.open();
    QCOMPARE(f.store->load(), none);
    f.keychain->setStatus(KeychainStatus::locked);
    f.keychain->answerUnlock(KeychainStatus::success, KeychainStatus::success);
    f.store->save(QStringLiteral("token"));
    QTRY_COMPARE(f.keychain->item(), std::optional<QByteArray>("token"));
    QCOMPARE(f.notKept, 0);
}

void KeychainTokenStoreTest::reportsATokenThatIsNotKept_data()
{
    QTest::addColumn<KeychainStatus>("status");
    QTest::newRow("no keychain") << KeychainStatus::unavailable;
    QTest::newRow("locked and refused") << KeychainStatus::locked;
}

void KeychainTokenStoreTest::reportsATokenThatIsNotKept()
{
    QFETCH(KeychainStatus, status);
    Fixture f;
    f.open();
    QCOMPARE(f.store->load(), none);
    f.keychain->setStatus(status);
    f.keychain->answerUnlock(KeychainStatus::locked, status);
    f.store->save(QStringLiteral("token"));
    QTRY_COMPARE(f.notKept, 1);
    QCOMPARE(f.store->load(), Token(QStringLiteral("token")));
    f.store->clear();
    f.store.reset();
    QCOMPARE(f.notKept, 1);
}

void KeychainTokenStoreTest::writesBeforeItEnds()
{
    Fixture f;
    f.open();
    f.store->save(QStringLiteral("token"));
    f.store.reset();
    QCOMPARE(f.keychain->item(), std::optional<QByteArray>("token"));
}

void KeychainTokenStoreTest::endsThoughTheKeychainHangs()
{
    Fixture f;
    f.keychain->hold();
    f.open();
    f.store->save(QStringLiteral("token"));
    QElapsedTimer timer;
    timer.start();
    f.store.reset();
    QVERIFY(timer.elapsed() < 4000);
    // The thread left behind ends with its call.
    f.keychain->release();
    QTRY_COMPARE(f.keychain->item(), std::optional<QByteArray>("token"));
}

QTEST_GUILESS_MAIN(KeychainTokenStoreTest)
#include "keychain_token_store_test.moc"
