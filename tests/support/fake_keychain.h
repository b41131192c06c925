#pragma once

#include "desktop/keychain.h"

#include <QStringList>

#include <condition_variable>
#include <mutex>
#include <optional>
#include <string>
#include <utility>

namespace pingwell {

/// A keychain in memory that can be slow, locked or broken, and tells what was asked of it. Any thread.
class FakeKeychain final : public Keychain
{
public:
    std::optional<QByteArray> item() const
    {
        const std::lock_guard lock(m_mutex);
        return m_item ? std::optional(QByteArray::fromStdString(*m_item)) : std::nullopt;
    }
    QStringList calls() const
    {
        const std::lock_guard lock(m_mutex);
        return m_calls;
    }
    /// Lists what else happened among the calls.
    void note(const QString &event)
    {
        const std::lock_guard lock(m_mutex);
        m_calls << event;
    }
    void setItem(const QByteArray &data) { set(m_item, data.toStdString()); }
    /// What every operation but unlock ends in from now on; success lets it through to the item.
    void setStatus(KeychainStatus status) { set(m_status, status); }
    /// What unlock ends in; until it is set, unlock waits for the person.
    void answerUnlock(KeychainStatus answer, KeychainStatus statusAfter)
    {
        set(m_statusAfterUnlock, statusAfter);
        set(m_unlockAnswer, answer);
    }
    /// Holds every operation but unlock before it touches the item, until it is released.
    void hold() { set(m_held, true); }
    void release() { set(m_held, false); }

    KeychainItem copyMatching(const QString &service, const QString &account) override
    {
        std::unique_lock lock = enter(QStringLiteral("copy %1/%2").arg(service, account));
        if (m_status != KeychainStatus::success)
            return {.status = m_status, .data = {}};
        if (!m_item)
            return {.status = KeychainStatus::itemNotFound, .data = {}};
        return {.status = KeychainStatus::success, .data = QByteArray::fromStdString(*m_item)};
    }

    KeychainStatus store(const QString &, const QString &, const QByteArray &data) override
    {
        return write(QStringLiteral("store"), data.toStdString());
    }

    KeychainStatus remove(const QString &, const QString &) override
    {
        return write(QStringLiteral("remove"), std::nullopt);
    }

    KeychainStatus unlock(std::stop_token stop) override
    {
        std::unique_lock lock(m_mutex);
        m_calls << QStringLiteral("unlock");
        if (!m_changed.wait(lock, stop, [this] { return m_unlockAnswer.has_value(); }))
            return KeychainStatus::locked;
        m_status = m_statusAfterUnlock;
        return *std::exchange(m_unlockAnswer, std::nullopt);
    }

private:
    // Not shared between threads as a QByteArray would be, whose counting thread sanitizers can't see inside Qt.
    using Item = std::optional<std::string>;

    template<typename Member, typename Value>
    void set(Member &member, const Value &value)
    {
        const std::lock_guard lock(m_mutex);
        member = value;
        m_changed.notify_all();
    }

    std::unique_lock<std::mutex> enter(const QString &call)
    {
        std::unique_lock lock(m_mutex);
        m_calls << call;
        m_changed.wait(lock, [this] { return !m_held; });
        return lock;
    }

    KeychainStatus write(const QString &call, const Item &item)
    {
        const std::unique_lock lock = enter(call);
        if (m_status == KeychainStatus::success)
            m_item = item;
        return m_status;
    }

    mutable std::mutex m_mutex;
    std::condition_variable_any m_changed;
    Item m_item;
    KeychainStatus m_status = KeychainStatus::success;
    std::optional<KeychainStatus> m_unlockAnswer;
    KeychainStatus m_statusAfterUnlock = KeychainStatus::success;
    bool m_held = false;
    QStringList m_calls;
};

} // namespace pingwell
