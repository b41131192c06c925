#include "store/stored_session.h"

#include "auth/account_record.h"
#include "auth/session_secret.h"
#include "desktop/preference_keys.h"

namespace pingwell {

namespace {

/// Stands in for an account record that can't be read; the token is still good.
Account placeholderAccount()
{
    return {.name = QStringLiteral("You"), .email = QString(), .provider = AuthProvider::google, .plan = QString()};
}

} // namespace

StoredSession::StoredSession(std::shared_ptr<TokenStore> tokens, std::shared_ptr<Preferences> preferences)
    : m_tokens(std::move(tokens))
    , m_preferences(std::move(preferences))
{
    m_tokens->onBecameReadable = [this] { onBecameReadable(); };
    m_tokens->onNotKept = [this] {
        // An older token may still be there, and the preferences name the new one's server by now.
        setOwesErasing(true);
        onNotKept();
    };
    m_tokens->onNotCleared = [this] { onNotErased(); };
    m_tokens->onWritten = [this] { setOwesErasing(false); };
}

StoredSession::~StoredSession()
{
    m_tokens->onBecameReadable = nullptr;
    m_tokens->onNotKept = nullptr;
    m_tokens->onNotCleared = nullptr;
    m_tokens->onWritten = nullptr;
}

StoredSession::Restored StoredSession::restore(const std::optional<QUrl> &given, const QUrl &chosen)
{
    using Kind = Restored::Kind;
    Restored restored{.baseURL = given.value_or(storedBaseURL().value_or(chosen))};
    if (owesErasing()) {
        m_tokens->clearLeftover();
        return restored;
    }
    const auto text = m_tokens->load();
    const auto secret = text ? decodedSecret(*text) : std::nullopt;
    const bool isBorrowed = given && secret && !secret->origin && isForAnotherServer(*given);
    if (!secret || (isBorrowed && m_wasRefused))
        return restored;
    if (!given && !m_preferences->isWhole()) {
        // Which server the token belongs to is lost, and whether it was to be erased.
        erase();
        restored.kind = Kind::unknownServer;
    } else if (secret->origin && *secret->origin != originOf(restored.baseURL)) {
        restored.kind = Kind::anotherServer;
        restored.tokenOrigin = *secret->origin;
    } else {
        m_isBorrowed = isBorrowed;
        restored.kind = Kind::session;
        restored.token = secret->token;
        restored.account = storedAccount();
    }
    return restored;
}

std::optional<QUrl> StoredSession::storedBaseURL() const
{
    const auto stored = m_preferences->string(preference_keys::sessionBaseURL);
    const QUrl url = stored ? QUrl(*stored, QUrl::StrictMode) : QUrl();
    return url.isValid() && !url.host().isEmpty() ? std::optional(url) : std::nullopt;
}

Account StoredSession::storedAccount() const
{
    const auto record = m_preferences->data(preference_keys::sessionAccount);
    const auto account = record ? decodedAccount(*record) : std::nullopt;
    return account.value_or(placeholderAccount());
}

bool StoredSession::isForAnotherServer(const QUrl &baseURL) const
{
    const auto stored = storedBaseURL();
    return stored && originOf(*stored) != originOf(baseURL);
}

void StoredSession::save(const QString &token, const QUrl &baseURL, const Account &account)
{
    m_isBorrowed = false;
    m_tokens->save(encodedSecret({.token = token, .origin = originOf(baseURL)}));
    m_preferences->setString(preference_keys::sessionBaseURL, baseURL.toString(QUrl::FullyEncoded));
    saveAccount(account);
}

void StoredSession::saveAccount(const Account &account)
{
    if (!m_isBorrowed)
        m_preferences->setData(preference_keys::sessionAccount, encodedAccount(account));
}

void StoredSession::erase()
{
    m_isBorrowed = false;
    // Before the attempt, so that a program killed during it still owes it.
    setOwesErasing(true);
    m_tokens->clear();
    m_preferences->remove(preference_keys::sessionAccount);
    m_preferences->remove(preference_keys::sessionBaseURL);
}

void StoredSession::eraseRefused()
{
    if (m_isBorrowed)
        m_wasRefused = true;
    else
        erase();
    m_isBorrowed = false;
}

bool StoredSession::remembersErasing() const
{
    return m_preferences->lasts();
}

bool StoredSession::owesErasing() const
{
    return m_preferences->boolean(preference_keys::sessionErasingOwed).value_or(false);
}

void StoredSession::setOwesErasing(bool owes)
{
    if (owes)
        m_preferences->setBoolean(preference_keys::sessionErasingOwed, true);
    else if (m_preferences->contains(preference_keys::sessionErasingOwed))
        m_preferences->remove(preference_keys::sessionErasingOwed);
}

} // namespace pingwell
