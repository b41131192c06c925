#pragma once

#include "desktop/keychain.h"

#include <memory>

namespace pingwell {

/// The keychain of the desktop session: its Secret Service (freedesktop Secret Service API), called through libsecret.
/// Items are found by their attributes "service" and "account" only and stored in the default collection. Only `unlock`
/// may take longer than ten seconds.
class SecretServiceKeychain final : public Keychain
{
public:
    SecretServiceKeychain();
    ~SecretServiceKeychain() override;
    Q_DISABLE_COPY_MOVE(SecretServiceKeychain)

    KeychainItem copyMatching(const QString &service, const QString &account) override;
    KeychainStatus store(const QString &service, const QString &account, const QByteArray &data) override;
    KeychainStatus remove(const QString &service, const QString &account) override;
    /// If no service answers, starts one and waits up to two minutes for it. If one answers, asks the person to unlock
    /// the item that the last look-up found locked, or the default collection, which is created if there is none.
    KeychainStatus unlock(std::stop_token stop) override;

private:
    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace pingwell
