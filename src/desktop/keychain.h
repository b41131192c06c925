#pragma once

#include <QByteArray>
#include <QString>

#include <stop_token>

namespace pingwell {

/// How an operation on the keychain ended.
enum class KeychainStatus {
    success,
    /// The keychain answered that there is no such item.
    itemNotFound,
    /// The item exists, or may exist, behind a lock.
    locked,
    /// There is no keychain to ask, or not yet, or it refused.
    unavailable,
};

/// What a look-up found; `data` is empty unless the status is success.
struct KeychainItem
{
    KeychainStatus status = KeychainStatus::unavailable;
    QByteArray data;
};

/// Generic-password items of the system's secret store, each named by its service and account. The calls block, but
/// none except `unlock` waits for the person; one thread at a time, never the main one.
class Keychain
{
public:
    virtual ~Keychain() = default;

    virtual KeychainItem copyMatching(const QString &service, const QString &account) = 0;
    /// Adds the item, or replaces its data.
    virtual KeychainStatus store(const QString &service, const QString &account, const QByteArray &data) = 0;
    virtual KeychainStatus remove(const QString &service, const QString &account) = 0;
    /// Asks the person to open the keychain where it is locked, or waits until one that is still starting answers;
    /// returns when it is open, when the person refused, or soon after `stop`.
    virtual KeychainStatus unlock(std::stop_token stop) = 0;
};

} // namespace pingwell
