#pragma once

#include "desktop/keychain.h"

#include <memory>

namespace pingwell {

/// The keychain of the desktop session: its Secret Service (freedesktop Secret Service API), reached through libsecret.
/// Items are found by their attributes "service" and "account" alone and kept in the default collection. No call but
/// `unlock` takes longer than ten seconds.
class SecretServiceKeychain final : public Keychain
{
public:
    SecretServiceKeychain();
    ~SecretServiceKeychain() override;
    Q_DISABLE_COPY_MOVE(SecretServiceKeychain)

    KeychainItem copyMatching(const QString &service, const QString &account) override;
    KeychainStatus store(const QString &service, const QString &account, const QByteArray &data) override;
    KeychainStatus remove(const QString &service, const QString &account) override;
    /// Where no service answers, starts one that only runs on demand and waits up to two minutes for it; where one
    /// does, asks the person to open what the last look-up found locked, or the default collection, which is made if
    /// there is none.
    KeychainStatus unlock(std::stop_token stop) override;

private:
    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace pingwell
