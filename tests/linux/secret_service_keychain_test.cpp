#include "linux/keyring/secret_service_keychain.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <thread>

using namespace pingwell;
using namespace Qt::StringLiterals;

namespace {

constexpr auto success = KeychainStatus::success;
constexpr auto absent = KeychainStatus::itemNotFound;
constexpr auto locked = KeychainStatus::locked;
constexpr auto unavailable = KeychainStatus::unavailable;

const QString service = u"com.pingwell.mac.session"_s;
const QString account = u"session"_s;

/// A real keyring with a home of its own, as the program meets it after login.
class Keyring
{
public:
    Keyring() { qputenv("XDG_RUNTIME_DIR", m_home.path().toUtf8()); }
    ~Keyring() { stop(); }

    void stop()
    {
        m_daemon.terminate();
        m_daemon.waitForFinished();
    }

    /// With its login collection open.
    bool start()
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"HOME"_s, m_home.path());
        environment.remove(u"XDG_DATA_HOME"_s);
        m_daemon.setProcessEnvironment(environment);
        m_daemon.start(u"gnome-keyring-daemon"_s, {u"--foreground"_s, u"--components=secrets"_s, u"--unlock"_s});
        m_daemon.write("\n");
        m_daemon.closeWriteChannel();
        return m_daemon.waitForStarted() && QTest::qWaitFor([] {
                   return call({u"--dest=org.freedesktop.DBus"_s, u"/"_s, u"org.freedesktop.DBus.NameHasOwner"_s,
                                u"string:org.freedesktop.secrets"_s})
                       .contains("true");
               });
    }

    /// Sends a call to the keyring from outside this process.
    static QByteArray call(const QStringList &arguments)
    {
        QProcess busctl;
        busctl.start(u"dbus-send"_s, QStringList{u"--session"_s, u"--print-reply"_s} + arguments);
        busctl.waitForFinished();
        return busctl.readAllStandardOutput();
    }

private:
    QTemporaryDir m_home;
    QProcess m_daemon;
};

} // namespace

// libsecret itself leaves 16 bytes behind for each prompt; only slow unwinding sees that it does.
// NOLINTBEGIN(bugprone-reserved-identifier): the sanitizers' own names.
extern "C" const char *__asan_default_options()
{
    return "fast_unwind_on_malloc=0";
}
extern "C" const char *__lsan_default_suppressions()
{
    return "leak:_secret_prompt_instance";
}
// NOLINTEND(bugprone-reserved-identifier)

class SecretServiceKeychainTest : public QObject
{
    Q_OBJECT

private slots:
    void worksWheneverTheServiceRuns()
    {
        SecretServiceKeychain keychain;
        QCOMPARE(keychain.copyMatching(service, account).status, unavailable);
        QCOMPARE(keychain.store(service, account, "secret"), unavailable);
        QCOMPARE(keychain.remove(service, account), unavailable);
        {
            KeychainStatus status = unavailable;
            std::thread waiting([&] { status = keychain.unlock({}); });
            Keyring keyring;
            const bool started = keyring.start();
            waiting.join();
            QVERIFY(started);
            QCOMPARE(status, success);
            QCOMPARE(keychain.store(service, account, "secret"), success);
        }
        QCOMPARE(keychain.copyMatching(service, account).status, unavailable);
    }

    void keepsReplacesAndRemoves()
    {
        Keyring keyring;
        QVERIFY(keyring.start());
        SecretServiceKeychain keychain;
        QCOMPARE(keychain.copyMatching(service, account).status, absent);
        QCOMPARE(keychain.remove(service, account), absent);
        QCOMPARE(keychain.store(service, account, "first"), success);
        QCOMPARE(keychain.store(service, account, "sëcond"), success);
        QCOMPARE(keychain.store(service, u"other"_s, "other"), success);
        // A restarted keyring, which knows nothing of the sessions it had.
        keyring.stop();
        QVERIFY(keyring.start());
        QCOMPARE(keychain.copyMatching(service, account).data, "sëcond");
        keyring.stop();
        QVERIFY(keyring.start());
        QCOMPARE(keychain.store(service, account, "third"), success);
        // A later run.
        SecretServiceKeychain later;
        QCOMPARE(later.copyMatching(service, account).data, "third");
        QCOMPARE(later.remove(service, account), success);
        QCOMPARE(keychain.copyMatching(service, account).status, absent);
        QCOMPARE(keychain.copyMatching(service, u"other"_s).data, "other");
    }

    void tellsLockedFromAbsent()
    {
        Keyring keyring;
        QVERIFY(keyring.start());
        SecretServiceKeychain keychain;
        QCOMPARE(keychain.store(service, account, "secret"), success);
        Keyring::call({u"--dest=org.freedesktop.secrets"_s, u"/org/freedesktop/secrets"_s,
                       u"org.freedesktop.Secret.Service.Lock"_s,
                       u"array:objpath:/org/freedesktop/secrets/collection/login"_s});
        QCOMPARE(keychain.copyMatching(service, account).status, locked);
        QCOMPARE(keychain.copyMatching(service, u"other"_s).status, absent);
        QCOMPARE(keychain.store(service, account, "new"), locked);
        QCOMPARE(keychain.remove(service, account), locked);
        // Nobody is there to be asked.
        QVERIFY(keychain.unlock({}) != success);
    }

    void unlockEndsSoonAfterStop()
    {
        SecretServiceKeychain keychain;
        std::stop_source stop;
        KeychainStatus status = success;
        std::thread waiting([&] { status = keychain.unlock(stop.get_token()); });
        stop.request_stop();
        QElapsedTimer timer;
        timer.start();
        waiting.join();
        QCOMPARE(status, unavailable);
        QVERIFY(timer.elapsed() < 1500);
    }
};

QTEST_GUILESS_MAIN(SecretServiceKeychainTest)
#include "secret_service_keychain_test.moc"
