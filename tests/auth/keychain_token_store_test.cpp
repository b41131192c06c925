#include "auth/keychain_token_store.h"
#include "support/fake_keychain.h"

#include <QElapsedTimer>
#include <QTest>

using namespace pingwell;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

using Token = std::optional<QString>;
using Item = std::optional<QByteArray>;

/// A store over a keychain of the test's own, with its reports counted.
struct Fixture
{
    std::shared_ptr<FakeKeychain> keychain = std::make_shared<FakeKeychain>();
    std::unique_ptr<KeychainTokenStore> store;
    std::function<void()> beforeWriting = [] {};
    int becameReadable = 0;
    int notKept = 0;
    int notCleared = 0;
    int written = 0;

    void open(std::chrono::milliseconds retryInterval = 30s)
    {
        store = std::make_unique<KeychainTokenStore>(keychain, u"s"_s, u"a"_s, beforeWriting, retryInterval);
        store->onNotCleared = [this] { ++notCleared; };
        store->onWritten = [this] { ++written; };
        store->onBecameReadable = [this] { ++becameReadable; };
        store->onNotKept = [this] { ++notKept; };
    }
    void openOutOfReach(KeychainStatus status)
    {
        keychain->setItem("old");
        keychain->setStatus(status);
        open();
        QCOMPARE(store->load(), Token());
        QTRY_VERIFY(keychain->calls().contains(u"unlock"_s));
    }
    void openSlow()
    {
        keychain->setItem("old");
        keychain->hold();
        open();
        QCOMPARE(store->load(), Token());
    }
};

} // namespace

class KeychainTokenStoreTest : public QObject
{
    Q_OBJECT

private slots:
    void loadsWhatTheKeychainHolds()
    {
        const QList<std::pair<QByteArray, Token>> cases{
            {"tøken", u"tøken"_s}, {"", {}}, {"to\xffken", {}}, {"tok\xc3", {}}};
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
        QElapsedTimer timer;
        timer.start();
        f.openSlow();
        QCOMPARE(f.store->load(), Token());
        QVERIFY2(timer.elapsed() < 900, "a second load must not wait again");
        f.keychain->release();
        QTRY_COMPARE(f.becameReadable, 1);
        QCOMPARE(f.store->load(), Token(u"old"_s));
    }

    void clearedTokenStaysClearedWhenTheLookUpIsLate()
    {
        Fixture f;
        f.openSlow();
        f.store->clear();
        f.keychain->release();
        QTRY_COMPARE(f.keychain->item(), Item());
        QCOMPARE(f.store->load(), Token());
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
        QTRY_COMPARE(f.keychain->item(), Item("new"));
        QCOMPARE(f.becameReadable + f.notKept, 0);
    }

    void saveThenClearLeavesNothingBehind()
    {
        Fixture f;
        f.beforeWriting = [keychain = f.keychain] { keychain->note(u"before"_s); };
        f.open();
        QCOMPARE(f.store->load(), Token());
        f.keychain->hold();
        f.store->save(u"token"_s);
        QTRY_VERIFY(f.keychain->calls().contains(u"store"_s));
        f.store->clear();
        QCOMPARE(f.store->load(), Token());
        f.keychain->release();
        f.store.reset();
        QCOMPARE(f.keychain->calls().mid(1), (QStringList{u"before"_s, u"store"_s, u"before"_s, u"remove"_s}));
        QCOMPARE(f.keychain->item(), Item());
    }

    void saveOpensALockedKeychainOrTellsThatItIsNotKept()
    {
        for (const KeychainStatus after :
             {KeychainStatus::success, KeychainStatus::locked, KeychainStatus::unavailable}) {
            const bool kept = after == KeychainStatus::success;
            Fixture f;
            f.open();
            QCOMPARE(f.store->load(), Token());
            f.keychain->setStatus(kept ? KeychainStatus::locked : after);
            f.keychain->answerUnlock(kept ? KeychainStatus::success : KeychainStatus::locked, after);
            f.store->save(u"token"_s);
            QTRY_COMPARE(f.notKept + int(f.keychain->item().has_value()), 1);
            QCOMPARE(f.notKept, kept ? 0 : 1);
            QCOMPARE(f.store->load(), Token(u"token"_s));
        }
    }

    void triesAgainWhatTheKeychainDidNotTake()
    {
        for (const auto &[isSave, status] : {std::pair(false, KeychainStatus::locked),
                                             {false, KeychainStatus::unavailable},
                                             {true, KeychainStatus::locked}}) {
            Fixture f;
            f.keychain->setItem("old");
            f.open(5ms);
            QCOMPARE(f.store->load(), Token(u"old"_s));
            f.keychain->setStatus(status);
            f.keychain->answerUnlock(KeychainStatus::locked, KeychainStatus::locked);
            if (isSave)
                f.store->save(u"new"_s);
            else
                f.store->clear();
            const QString attempt = isSave ? u"store"_s : u"remove"_s;
            QTRY_VERIFY(f.keychain->calls().count(attempt) >= 3);
            QCOMPARE(f.keychain->calls().count(u"unlock"_s), status == KeychainStatus::locked ? 1 : 0);
            QTRY_COMPARE(isSave ? f.notKept : f.notCleared, 1);
            QCOMPARE(f.written, 0);

            f.keychain->setStatus(KeychainStatus::success);
            QTRY_COMPARE(f.written, 1);
            QCOMPARE(f.keychain->item(), isSave ? Item("new") : Item());
            QCOMPARE(f.notKept + f.notCleared, 1);
        }
    }

    void aLeftoverIsRemovedWithoutAQuestion()
    {
        Fixture f;
        f.keychain->setItem("old");
        f.keychain->setStatus(KeychainStatus::locked);
        f.open(5ms);
        // Time enough for a look-up that did not wait to be asked for.
        QTest::qWait(20);
        f.store->clearLeftover();
        QTRY_VERIFY(f.keychain->calls().size() >= 3);
        QCOMPARE(f.store->load(), Token());
        f.keychain->setStatus(KeychainStatus::success);
        QTRY_COMPARE(f.written, 1);
        QCOMPARE(f.keychain->item(), Item());
        QCOMPARE(f.notCleared, 0);
        const QStringList calls = f.keychain->calls();
        QCOMPARE(calls.count(u"remove"_s), calls.size());
    }

    void writesBeforeItEndsUnlessTheKeychainHangs()
    {
        for (const bool hangs : {false, true}) {
            Fixture f;
            f.open();
            if (hangs)
                f.keychain->hold();
            f.store->save(u"token"_s);
            QElapsedTimer timer;
            timer.start();
            f.store.reset();
            QVERIFY(timer.elapsed() < 4000);
            QCOMPARE(f.keychain->item(), hangs ? Item() : Item("token"));
            // The thread left behind ends with its call.
            f.keychain->release();
            QTRY_COMPARE(f.keychain->item(), Item("token"));
        }
    }
};

QTEST_GUILESS_MAIN(KeychainTokenStoreTest)
#include "keychain_token_store_test.moc"
