#pragma once

#include "auth/token_store.h"
#include "desktop/preferences.h"
#include "model/account.h"

#include <QUrl>

#include <functional>
#include <memory>
#include <optional>

namespace pingwell {

/// The session as it outlives the program: the token in the token store, the server's address and the account in the
/// preferences. A token is given out for its own origin only, and never once it was erased, even while the keychain
/// can't be reached to erase it. Main thread.
class StoredSession
{
public:
    /// What a look-up found. `baseURL` is the address in question also where there is no session.
    struct Restored
    {
        enum class Kind {
            session,
            nothing,
            /// There is a token, but the preferences that knew its server are damaged.
            unknownServer,
            /// There is a token for `tokenOrigin`, which is not where the program would use it.
            anotherServer,
        };

        Kind kind = Kind::nothing;
        QUrl baseURL = {};
        QString token = {};
        Account account = {};
        QString tokenOrigin = {};
    };

    StoredSession(std::shared_ptr<TokenStore> tokens, std::shared_ptr<Preferences> preferences);
    ~StoredSession();
    Q_DISABLE_COPY_MOVE(StoredSession)

    /// Looks the session up. `given` is the address that goes before every stored one, `chosen` the one for a session
    /// without an address of its own.
    [[nodiscard]] Restored restore(const std::optional<QUrl> &given, const QUrl &chosen);
    void save(const QString &token, const QUrl &baseURL, const Account &account);
    void saveAccount(const Account &account);
    /// Forgets the session. What the keychain does not give up now is removed later, in another run at the latest.
    void erase();
    /// The same for a session that its server refused; but what is stored for another server stays.
    void eraseRefused();
    /// Whether the next run will know that the session was erased.
    [[nodiscard]] bool remembersErasing() const;

    /// A token that was out of reach at `restore` can be looked up now.
    std::function<void()> onBecameReadable = [] {};
    /// The session that was saved will be forgotten at exit.
    std::function<void()> onNotKept = [] {};
    /// The token that was erased is still in the keychain.
    std::function<void()> onNotErased = [] {};

private:
    [[nodiscard]] std::optional<QUrl> storedBaseURL() const;
    [[nodiscard]] Account storedAccount() const;
    [[nodiscard]] bool isForAnotherServer(const QUrl &baseURL) const;
    [[nodiscard]] bool owesErasing() const;
    void setOwesErasing(bool owes);

    std::shared_ptr<TokenStore> m_tokens;
    std::shared_ptr<Preferences> m_preferences;
    /// The session in use is tried at a server given for this run; the stored one belongs to another.
    bool m_isBorrowed = false;
    /// The given server refused it; it is not tried there again.
    bool m_wasRefused = false;
};

} // namespace pingwell
