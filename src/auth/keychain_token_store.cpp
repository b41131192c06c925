#include "auth/keychain_token_store.h"

#include <QStringDecoder>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <utility>

namespace pingwell {

using namespace std::chrono_literals;

namespace {

constexpr auto longestWaitAtLoad = 500ms;
constexpr auto longestWaitAtExit = 2s;
constexpr auto longestRetryInterval = 10min;

/// The token in the keychain item's data; none for an empty one and for bytes that are not UTF-8.
std::optional<QString> tokenFrom(const QByteArray &data)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString token = decoder(data);
    if (decoder.hasError() || token.isEmpty())
        return std::nullopt;
    return token;
}

/// Whether this change may ask the person to open a locked keychain.
enum class Asking { allowed, forbidden };

bool isOutOfReach(KeychainStatus status)
{
    return status == KeychainStatus::locked || status == KeychainStatus::unavailable;
}

} // namespace

/// The token, and the loop of the thread that calls the keychain. The store and the thread share the ownership, so that
/// a thread stuck in a keychain call can be detached.
class KeychainTokenStore::Worker
{
public:
    Worker(KeychainTokenStore *store, std::shared_ptr<Keychain> keychain, QString service, QString account,
           std::function<void()> beforeWriting, std::chrono::milliseconds retryInterval)
        : m_store(store)
        , m_keychain(std::move(keychain))
        , m_service(std::move(service))
        , m_account(std::move(account))
        , m_beforeWriting(std::move(beforeWriting))
        , m_retryInterval(retryInterval)
    {
    }

    // Main thread.
    std::optional<QString> load();
    void keep(std::optional<QString> token, Asking asking);
    /// Writes the changes that are left; false when that takes too long.
    bool finish();

    /// Runs on the store's thread until `finish`.
    void run();

private:
    using Callback = std::function<void()> TokenStore::*;

    /// Waits until the first operation decides whether to look the token up. A token that was saved or cleared by then
    /// is not looked up: cancelling an unlock dialog can end the keyring's service.
    bool isToLookUp();
    void lookUp();
    KeychainStatus readToken();
    /// Waits for a change to write; false when the thread has to end.
    bool waitForWork(std::unique_lock<std::mutex> &lock);
    /// Tries to write a change. With `Asking::allowed`, the person is asked to open a locked keychain, and a failure is
    /// reported.
    void write(const std::optional<QString> &token, quint64 revision, Asking asking);
    KeychainStatus tryWrite(const std::optional<QString> &token);
    void noteOutcome(KeychainStatus status, quint64 revision);
    void post(Callback callback, quint64 revision);

    std::mutex m_mutex;
    std::condition_variable m_changed;
    // Guarded by m_mutex.
    KeychainTokenStore *m_store;
    std::optional<QString> m_token;
    // The number of saves and clears since the start; 0 means that the look-up still decides which token there is.
    quint64 m_revision = 0;
    quint64 m_writtenRevision = 0;
    Asking m_asking = Asking::forbidden;
    bool m_isAsked = false;
    bool m_answered = false;
    bool m_missed = false;
    bool m_stopping = false;
    bool m_finished = false;
    // The time until the next attempt to write a change that failed; none when the keychain holds the latest change.
    std::optional<std::chrono::milliseconds> m_retryWait;
    std::optional<std::chrono::steady_clock::time_point> m_loadDeadline;

    // Constant, or safe to use from any thread.
    const std::shared_ptr<Keychain> m_keychain;
    const QString m_service;
    const QString m_account;
    const std::function<void()> m_beforeWriting;
    const std::chrono::milliseconds m_retryInterval;
    std::stop_source m_lookUpStop;
    std::stop_source m_exitStop;
};

std::optional<QString> KeychainTokenStore::Worker::load()
{
    std::unique_lock lock(m_mutex);
    if (!m_loadDeadline)
        m_loadDeadline = std::chrono::steady_clock::now() + longestWaitAtLoad;
    m_isAsked = true;
    m_changed.notify_all();
    m_changed.wait_until(lock, *m_loadDeadline, [this] { return m_answered || m_revision > 0; });
    if (!m_token && m_revision == 0)
        m_missed = true;
    return m_token;
}

void KeychainTokenStore::Worker::keep(std::optional<QString> token, Asking asking)
{
    {
        const std::lock_guard lock(m_mutex);
        m_token = std::move(token);
        m_asking = asking;
        ++m_revision;
    }
    m_changed.notify_all();
    // A look-up under way is obsolete now, so the person need not open the keychain for it.
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
    if (isToLookUp())
        lookUp();
    std::unique_lock lock(m_mutex);
    while (waitForWork(lock)) {
        // Only the latest change is written; a token that was saved and cleared in between never reaches the keychain.
        const std::optional<QString> token = m_token;
        const quint64 revision = m_revision;
        // The person is asked once for each change.
        const Asking asking = std::exchange(m_asking, Asking::forbidden);
        lock.unlock();
        write(token, revision, asking);
        lock.lock();
        m_writtenRevision = revision;
    }
    m_finished = true;
    m_changed.notify_all();
}

bool KeychainTokenStore::Worker::waitForWork(std::unique_lock<std::mutex> &lock)
{
    const auto isDue = [this] { return m_stopping || m_revision > m_writtenRevision; };
    if (m_retryWait)
        m_changed.wait_for(lock, *m_retryWait, isDue);
    else
        m_changed.wait(lock, isDue);
    return m_revision > m_writtenRevision || !m_stopping;
}

bool KeychainTokenStore::Worker::isToLookUp()
{
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return m_isAsked || m_revision > 0 || m_stopping; });
    return m_revision == 0 && !m_stopping;
}

void KeychainTokenStore::Worker::lookUp()
{
    const std::stop_token stop = m_lookUpStop.get_token();
    KeychainStatus status = readToken();
    // Two rounds, because a keychain that was still starting may turn out to be locked.
    for (int round = 0; round < 2 && isOutOfReach(status) && !stop.stop_requested(); ++round) {
        if (m_keychain->unlock(stop) != KeychainStatus::success)
            return;
        status = readToken();
    }
}

/// Looks the token up in the keychain and stores the result.
KeychainStatus KeychainTokenStore::Worker::readToken()
{
    const KeychainItem item = m_keychain->copyMatching(m_service, m_account);
    {
        const std::lock_guard lock(m_mutex);
        m_answered = true;
        // A token that was saved or cleared during the look-up is newer than the one in the keychain.
        if (item.status == KeychainStatus::success && m_revision == 0)
            m_token = tokenFrom(item.data);
        if (m_token && m_missed)
            post(&TokenStore::onBecameReadable, 0);
    }
    m_changed.notify_all();
    return item.status;
}

void KeychainTokenStore::Worker::write(const std::optional<QString> &token, quint64 revision, Asking asking)
{
    m_beforeWriting();
    const bool mayAsk = asking == Asking::allowed;
    const std::stop_token stop = m_exitStop.get_token();
    KeychainStatus status = tryWrite(token);
    if (mayAsk && status == KeychainStatus::locked && !m_exitStop.stop_requested() &&
        m_keychain->unlock(m_exitStop.get_token()) == KeychainStatus::success)
        status = tryWrite(token);
    const std::lock_guard lock(m_mutex);
    if (mayAsk)
        m_retryWait.reset();
    noteOutcome(status, revision);
    if (mayAsk && isOutOfReach(status))
        post(token ? &TokenStore::onNotKept : &TokenStore::onNotCleared, revision);
}

/// Decides when the change is tried again, if at all. Called with m_mutex locked.
void KeychainTokenStore::Worker::noteOutcome(KeychainStatus status, quint64 revision)
{
    if (!isOutOfReach(status)) {
        m_retryWait.reset();
        post(&TokenStore::onWritten, revision);
    } else if (status == KeychainStatus::locked || !m_retryWait) {
        m_retryWait = m_retryInterval;
    } else {
        m_retryWait = std::min<std::chrono::milliseconds>(2 * *m_retryWait, longestRetryInterval);
    }
}

KeychainStatus KeychainTokenStore::Worker::tryWrite(const std::optional<QString> &token)
{
    if (token)
        return m_keychain->store(m_service, m_account, token->toUtf8());
    return m_keychain->remove(m_service, m_account);
}

/// Schedules the callback on the main thread. It is skipped when a newer change was made by then. Called with m_mutex
/// locked.
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
                                       const QString &account, std::function<void()> beforeWriting,
                                       std::chrono::milliseconds retryInterval)
    : m_worker(std::make_shared<Worker>(this, std::move(keychain), service, account, std::move(beforeWriting),
                                        retryInterval))
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
    m_worker->keep(token, Asking::allowed);
}

void KeychainTokenStore::clear()
{
    m_worker->keep(std::nullopt, Asking::allowed);
}

void KeychainTokenStore::clearLeftover()
{
    m_worker->keep(std::nullopt, Asking::forbidden);
}

} // namespace pingwell
