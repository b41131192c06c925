#pragma once

#include <QByteArray>
#include <QString>

#include <stop_token>

namespace pingwell {

/// The result of an operation on the keychain.
enum class KeychainStatus {
    success,
    /// The keychain answered, and it has no such item.
    itemNotFound,
    /// The item exists, or may exist, but it is locked.
    locked,
    /// There is no keychain, it is not running yet, or it refused the call.
    unavailable,
};

/// The result of a look-up; `data` is empty unless the status is success.
struct KeychainItem
{
    KeychainStatus status = KeychainStatus::unavailable;
    QByteArray data;
};

/// Generic-password items of the system's secret store, each named by its service and account. Every call blocks, but
/// only `unlock` waits for the person. One thread at a time, never the main thread.
class Keychain
{
public:
    virtual ~Keychain() = default;

    virtual KeychainItem copyMatching(const QString &service, const QString &account) = 0;
    /// Adds the item or replaces its data.
    virtual KeychainStatus store(const QString &service, const QString &account, const QByteArray &data) = 0;
    virtual KeychainStatus remove(const QString &service, const QString &account) = 0;
    /// Asks the person to unlock a locked keychain, or waits until a keychain that is still starting answers. Returns
    /// when it is unlocked, when the person refused, or soon after `stop`.
    virtual KeychainStatus unlock(std::stop_token stop) = 0;
};

} // namespace pingwell
