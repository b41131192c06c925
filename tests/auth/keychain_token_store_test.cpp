#include "auth/keychain_token_store.h"
#include "fake_keychain.h"

#include <QElapsedTimer>
#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

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
        store = std::make_unique<KeychainTokenStore>(keychain, u"s"_s, u"a"_s);
        store->onBecameReadable = [this] { ++becameReadable; };
        store->onNotKept = [this] { ++notKept; };
    }
    void openOutOfReach(KeychainStatus status)
    {
        keychain->setItem("old");
        keychain->setStatus(status);
        open();
        QCOMPARE(store->load(), std::nullopt);
        QTRY_VERIFY(keychain->calls().contains(u"unlock"_s));
    }
};

using Token = std::optional<QString>;
const Token none;

} // namespace

class KeychainTokenStoreTest : public QObject
{
    Q_OBJECT

private slots:
    void loadsWhatTheKeychainHolds()
    {
        const QList<std::pair<QByteArray, Token>> cases{
            {"tøken", u"tøken"_s}, {"", none}, {"to\xffken", none}, {"tok\xc3", none}};
        for (const auto &[data, token] : cases) {
            Fixture f;
            f.keychain->setItem(data);
            f.open();
            QCOMPARE(f.store->load(), token);
            f.store.reset();
            QCOMPARE(f.keychain->calls(), QStringList{u"copy s/a"_s});
        }
    }

    void reportsATokenOutOfReachAtLoad()
    {
        for (const KeychainStatus status : {KeychainStatus::locked, KeychainStatus::unavailable}) {
            Fixture f;
            f.openOutOfReach(status);
            // It may have to be unlocked once it is there.
            f.keychain->answerUnlock(KeychainStatus::success, KeychainStatus::locked);
            QTRY_COMPARE(f.keychain->calls().count(u"unlock"_s), 2);
            f.keychain->answerUnlock(KeychainStatus::success, KeychainStatus::success);
            QTRY_COMPARE(f.becameReadable, 1);
            QCOMPARE(f.store->load(), Token(u"old"_s));
        }
    }

    void loadWaitsABoundedTimeForASlowKeychain()
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
        QCOMPARE(f.store->load(), Token(u"token"_s));
    }

    void clearedTokenStaysClearedWhenTheLookUpIsLate()
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

    void givesUpWhenThePersonRefuses()
    {
        Fixture f;
        f.openOutOfReach(KeychainStatus::locked);
        f.keychain->answerUnlock(KeychainStatus::locked, KeychainStatus::locked);
        f.store.reset();
        QCOMPARE(f.keychain->calls(), (QStringList{u"copy s/a"_s, u"unlock"_s}));
    }

    void newTokenEndsTheWaitForTheOldOne()
    {
        Fixture f;
        f.openOutOfReach(KeychainStatus::unavailable);
        f.keychain->setStatus(KeychainStatus::success);
        f.store->save(u"new"_s);
        QCOMPARE(f.store->load(), Token(u"new"_s));
        QTRY_COMPARE(f.keychain->item(), std::optional<QByteArray>("new"));
        QCOMPARE(f.becameReadable, 0);
        QCOMPARE(f.notKept, 0);
    }

    void saveThenClearLeavesNothingBehind()
    {
        Fixture f;
        f.open();
        QCOMPARE(f.store->load(), none);
        f.keychain->hold();
        f.store->save(u"token"_s);
        QTRY_VERIFY(f.keychain->calls().contains(u"store"_s));
        f.store->clear();
        QCOMPARE(f.store->load(), none);
        f.keychain->release();
        f.store.reset();
        QCOMPARE(f.keychain->item(), std::optional<QByteArray>());
    }

    void saveOpensALockedKeychainOrTellsThatItIsNotKept()
    {
        for (const KeychainStatus after :
             {KeychainStatus::success, KeychainStatus::locked, KeychainStatus::unavailable}) {
            const bool kept = after == KeychainStatus::success;
            Fixture f;
            f.open();
            QCOMPARE(f.store->load(), none);
            f.keychain->setStatus(kept ? KeychainStatus::locked : after);
            f.keychain->answerUnlock(kept ? KeychainStatus::success : KeychainStatus::locked, after);
            f.store->save(u"token"_s);
            QTRY_COMPARE(f.notKept + int(f.keychain->item().has_value()), 1);
            QCOMPARE(f.notKept, kept ? 0 : 1);
            QCOMPARE(f.store->load(), Token(u"token"_s));
        }
    }

    void writesBeforeItEndsUnlessTheKeychainHangs()
    {
        Fixture quick;
        quick.open();
        quick.store->save(u"token"_s);
        quick.store.reset();
        QCOMPARE(quick.keychain->item(), std::optional<QByteArray>("token"));

        Fixture f;
        f.keychain->hold();
        f.open();
        f.store->save(u"token"_s);
        QElapsedTimer timer;
        timer.start();
        f.store.reset();
        QVERIFY(timer.elapsed() < 4000);
        // The thread left behind ends with its call.
        f.keychain->release();
        QTRY_COMPARE(f.keychain->item(), std::optional<QByteArray>("token"));
    }
};

QTEST_GUILESS_MAIN(KeychainTokenStoreTest)
#include "keychain_token_store_test.moc"
