#pragma once

#include "auth/token_store.h"
#include "desktop/keychain.h"

#include <QObject>

#include <chrono>
#include <functional>
#include <memory>
#include <thread>

namespace pingwell {

/// Keeps the token as one item of the keychain. The keychain may be slow, locked or missing, so every call to it is
/// made on a thread of the store's own; what the main thread sees is a copy in memory.
class KeychainTokenStore final : public TokenStore
{
public:
    /// Asks the keychain nothing before the first operation, which decides whether there is anything to look up.
    /// `beforeWriting` is called on the store's thread ahead of each attempt to change the keychain, and may block.
    /// What a locked keychain did not take is tried again every `retryInterval`, without asking the person again; an
    /// unavailable one is tried ever more rarely.
    KeychainTokenStore(
        std::shared_ptr<Keychain> keychain, const QString &service, const QString &account,
        std::function<void()> beforeWriting = [] {},
        std::chrono::milliseconds retryInterval = std::chrono::seconds(30));
    /// Waits at most 2 s for what is still to be written; a keychain that hangs longer is left behind.
    ~KeychainTokenStore() override;
    Q_DISABLE_COPY_MOVE(KeychainTokenStore)

    /// Begins the look-up, and waits at most 500 ms for it. One that needs longer, or the person to open the keychain,
    /// goes on by itself and ends in `onBecameReadable` when there is a token.
    [[nodiscard]] std::optional<QString> load() override;
    void save(const QString &token) override;
    void clear() override;
    void clearLeftover() override;

private:
    class Worker;

    // Callbacks travel through it, so that none arrives after the store is gone.
    QObject m_receiver;
    std::shared_ptr<Worker> m_worker;
    std::thread m_thread;
};

} // namespace pingwell
