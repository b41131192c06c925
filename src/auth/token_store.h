#pragma once

#include <QString>

#include <functional>
#include <optional>
#include <utility>

namespace pingwell {

/// Stores the session's bearer token. The operations return no errors. A token that can't be read counts as signed out;
/// a token that can't be written is kept until the program ends; a token that can't be cleared is not used any more in
/// this run. The callbacks below report the result of a change. Main thread; no operation waits for the person.
class TokenStore
{
public:
    virtual ~TokenStore() = default;

    [[nodiscard]] virtual std::optional<QString> load() = 0;
    virtual void save(const QString &token) = 0;
    virtual void clear() = 0;
    /// Clears a token that an earlier run could not clear. The person is not asked to open the keyring for it, and
    /// `onNotCleared` is not called: that run has already told them.
    virtual void clearLeftover() = 0;

    /// Called on the main thread when a token that `load` could not reach, because the keyring was locked or not
    /// running yet, can be loaded.
    std::function<void()> onBecameReadable;
    /// Called on the main thread when a saved token could not be stored and will be forgotten at exit.
    std::function<void()> onNotKept;
    /// Called on the main thread when a cleared token could not be removed from the keyring. Clearing is tried again
    /// until it succeeds or the program ends.
    std::function<void()> onNotCleared;
    /// Called on the main thread when the latest change is stored, so that the next run will find it.
    std::function<void()> onWritten;
};

/// Keeps the token in memory only: for tests, and for a session handed in from outside.
class MemoryTokenStore final : public TokenStore
{
public:
    explicit MemoryTokenStore(std::optional<QString> token = std::nullopt)
        : m_token(std::move(token))
    {
    }

    [[nodiscard]] std::optional<QString> load() override { return m_token; }
    void save(const QString &token) override { keep(token); }
    void clear() override { keep(std::nullopt); }
    void clearLeftover() override { clear(); }

private:
    void keep(std::optional<QString> token)
    {
        m_token = std::move(token);
        if (onWritten)
            onWritten();
    }

    std::optional<QString> m_token;
};

} // namespace pingwell
