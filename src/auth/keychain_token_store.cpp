#include "auth/keychain_token_store.h"

#include <QStringDecoder>

#include <chrono>
#include <condition_variable>
#include <mutex>

namespace pingwell {

using namespace std::chrono_literals;

namespace {

constexpr auto longestWaitAtLoad = 500ms;
constexpr auto longestWaitAtExit = 2s;

/// The text of a stored token; none for an empty one and for bytes that are not UTF-8.
std::optional<QString> tokenFrom(const QByteArray &data)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString token = decoder(data);
    if (decoder.hasError() || token.isEmpty())
        return std::nullopt;
    return token;
}

bool isOutOfReach(KeychainStatus status)
{
    return status == KeychainStatus::locked || status == KeychainStatus::unavailable;
}

} // namespace

/// The token and the thread that speaks to the keychain. Both sides hold it, so that a thread stuck in a call can be
/// left behind.
class KeychainTokenStore::Worker
{
public:
    Worker(KeychainTokenStore *store, std::shared_ptr<Keychain> keychain, QString service, QString account)
        : m_store(store)
        , m_keychain(std::move(keychain))
        , m_service(std::move(service))
        , m_account(std::move(account))
    {
    }

    // Main thread.
    std::optional<QString> load();
    void keep(std::optional<QString> token);
    /// Writes what is still to be written; false when that takes too long.
    bool finish();

    /// The thread's whole life.
    void run();

private:
    using Callback = std::function<void()> TokenStore::*;

    void lookUp();
    KeychainStatus readToken();
    void write(const std::optional<QString> &token, quint64 revision);
    KeychainStatus tryWrite(const std::optional<QString> &token);
    void post(Callback callback, quint64 revision);

    std::mutex m_mutex;
    std::condition_variable m_changed;
    // Guarded by the mutex.
    KeychainTokenStore *m_store;
    std::optional<QString> m_token;
    // Counts what was kept since the start; 0 means that the look-up still decides.
    quint64 m_revision = 0;
    quint64 m_writtenRevision = 0;
    bool m_answered = false;
    bool m_missed = false;
    bool m_stopping = false;
    bool m_finished = false;
    std::optional<std::chrono::steady_clock::time_point> m_loadDeadline;

    // Set once, or safe by themselves.
    const std::shared_ptr<Keychain> m_keychain;
    const QString m_service;
    const QString m_account;
    std::stop_source m_lookUpStop;
    std::stop_source m_exitStop;
};

std::optional<QString> KeychainTokenStore::Worker::load()
{
    std::unique_lock lock(m_mutex);
    if (!m_loadDeadline)
        m_loadDeadline = std::chrono::steady_clock::now() + longestWaitAtLoad;
    m_changed.wait_until(lock, *m_loadDeadline, [this] { return m_answered || m_revision > 0; });
    if (!m_token && m_revision == 0)
        m_missed = true;
    return m_token;
}

void KeychainTokenStore::Worker::keep(std::optional<QString> token)
{
    {
        const std::lock_guard lock(m_mutex);
        m_token = std::move(token);
        ++m_revision;
    }
    m_changed.notify_all();
    // What the look-up would find no longer counts; the person need not open the keychain for it.
    m_lookUpStop.request_stop();
}

bool KeychainTokenStore::Worker::finish()
{
    m_lookUpStop.request_stop();
    m_exitStop.request_stop();
    std::unique_lock lock(m_mutex);
    m_store = nullptr;
    m_stopping = true;
    m_changed.notify_all();
    return m_changed.wait_for(lock, longestWaitAtExit, [this] { return m_finished; });
}

void KeychainTokenStore::Worker::run()
{
    lookUp();
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_changed.wait(lock, [this] { return m_stopping || m_revision > m_writtenRevision; });
        if (m_revision == m_writtenRevision)
            break;
        // Only the latest counts: a token saved and cleared meanwhile need not touch the keychain in between.
        const std::optional<QString> token = m_token;
        const quint64 revision = m_revision;
        lock.unlock();
        write(token, revision);
        lock.lock();
        m_writtenRevision = revision;
    }
    m_finished = true;
    m_changed.notify_all();
}

void KeychainTokenStore::Worker::lookUp()
{
    const std::stop_token stop = m_lookUpStop.get_token();
    KeychainStatus status = readToken();
    // A keychain that was still starting may turn out to be locked: two rounds.
    for (int round = 0; round < 2 && isOutOfReach(status) && !stop.stop_requested(); ++round) {
        if (m_keychain->unlock(stop) != KeychainStatus::success)
            return;
        status = readToken();
    }
}

/// Asks the keychain and takes its answer in.
KeychainStatus KeychainTokenStore::Worker::readToken()
{
    const KeychainItem item = m_keychain->copyMatching(m_service, m_account);
    {
        const std::lock_guard lock(m_mutex);
        m_answered = true;
        // A token kept meanwhile, or cleared, is newer than what the keychain held.
        if (item.status == KeychainStatus::success && m_revision == 0)
            m_token = tokenFrom(item.data);
        if (m_token && m_missed)
            post(&TokenStore::onBecameReadable, 0);
    }
    m_changed.notify_all();
    return item.status;
}

void KeychainTokenStore::Worker::write(const std::optional<QString> &token, quint64 revision)
{
    const std::stop_token stop = m_exitStop.get_token();
    KeychainStatus status = tryWrite(token);
    if (status == KeychainStatus::locked && !stop.stop_requested()) {
        if (m_keychain->unlock(stop) == KeychainStatus::success)
            status = tryWrite(token);
    }
    const std::lock_guard lock(m_mutex);
    if (token && status != KeychainStatus::success)
        post(&TokenStore::onNotKept, revision);
}

KeychainStatus KeychainTokenStore::Worker::tryWrite(const std::optional<QString> &token)
{
    if (token)
        return m_keychain->store(m_service, m_account, token->toUtf8());
    return m_keychain->remove(m_service, m_account);
}

/// Calls back on the main thread unless something newer was kept by then. The mutex is held.
void KeychainTokenStore::Worker::post(Callback callback, quint64 revision)
{
    if (!m_store || revision != m_revision)
        return;
    KeychainTokenStore *const store = m_store;
    const auto report = [this, store, callback, revision] {
        {
            const std::lock_guard lock(m_mutex);
            if (revision != m_revision)
                return;
        }
        if (store->*callback)
            (store->*callback)();
    };
    QMetaObject::invokeMethod(&store->m_receiver, report, Qt::QueuedConnection);
}

KeychainTokenStore::KeychainTokenStore(std::shared_ptr<Keychain> keychain, const QString &service,
                                       const QString &account)
    : m_worker(std::make_shared<Worker>(this, std::move(keychain), service, account))
    , m_thread([worker = m_worker] { worker->run(); })
{
}

KeychainTokenStore::~KeychainTokenStore()
{
    if (m_worker->finish())
        m_thread.join();
    else
        m_thread.detach();
}

std::optional<QString> KeychainTokenStore::load()
{
    return m_worker->load();
}

void KeychainTokenStore::save(const QString &token)
{
    m_worker->keep(token);
}

void KeychainTokenStore::clear()
{
    m_worker->keep(std::nullopt);
}

} // namespace pingwell
