#pragma once

#include <QString>

#include <functional>
#include <optional>
#include <utility>

namespace pingwell {

/// Keeps the session's bearer token. Its operations report no failure to their caller: a token that can't be read means
/// signed out, one that can't be written is kept for this run, one that can't be cleared is none in this run. What
/// became of a change is told through the functions below. Main thread; none of the operations waits for the person.
class TokenStore
{
public:
    virtual ~TokenStore() = default;

    [[nodiscard]] virtual std::optional<QString> load() = 0;
    virtual void save(const QString &token) = 0;
    virtual void clear() = 0;
    /// Clears what an earlier run could not clear. The person is not asked to open the keyring for it, and
    /// `onNotCleared` is not called: they were told in that run.
    virtual void clearLeftover() = 0;

    /// Called on the main thread when a token that was out of reach at `load`, behind a locked or late keyring, can be
    /// loaded after all.
    std::function<void()> onBecameReadable;
    /// Called on the main thread when a saved token will be forgotten at exit.
    std::function<void()> onNotKept;
    /// Called on the main thread when a cleared token is still where it was kept. Clearing is tried again until it
    /// succeeds or the program ends.
    std::function<void()> onNotCleared;
    /// Called on the main thread when what was last saved or cleared will be found so by the next run.
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
