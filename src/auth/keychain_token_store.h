#pragma once

#include "auth/token_store.h"
#include "desktop/keychain.h"

#include <QObject>

#include <chrono>
#include <functional>
#include <memory>
#include <thread>

namespace pingwell {

/// Stores the token as one item of the keychain. The keychain may be slow, locked or missing, so every call to it is
/// made on the store's own thread; the main thread reads a copy in memory.
class KeychainTokenStore final : public TokenStore
{
public:
    /// Does not call the keychain before the first operation, which decides whether the token has to be looked up.
    /// `beforeWriting` is called on the store's thread before each attempt to change the keychain, and may block. A
    /// change that a locked keychain refused is tried again every `retryInterval`, without asking the person again;
    /// with an unavailable keychain the interval doubles each time, up to a limit.
    KeychainTokenStore(
        std::shared_ptr<Keychain> keychain, const QString &service, const QString &account,
        std::function<void()> beforeWriting = [] {},
        std::chrono::milliseconds retryInterval = std::chrono::seconds(30));
    /// Waits at most 2 s for changes to be written; a thread that is stuck for longer is detached.
    ~KeychainTokenStore() override;
    Q_DISABLE_COPY_MOVE(KeychainTokenStore)

    /// Starts the look-up and waits at most 500 ms for it. A look-up that takes longer, or that waits for the person to
    /// open the keychain, continues on the thread and calls `onBecameReadable` if it finds a token.
    [[nodiscard]] std::optional<QString> load() override;
    void save(const QString &token) override;
    void clear() override;
    void clearLeftover() override;

private:
    class Worker;

    // Callbacks are delivered through this object, so that none arrives after the store is destroyed.
    QObject m_receiver;
    std::shared_ptr<Worker> m_worker;
    std::thread m_thread;
};

} // namespace pingwell
