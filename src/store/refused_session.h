#pragma once

#include "api/api_client.h"
#include "model/account.h"

#include <QHash>
#include <QString>
#include <QStringList>

namespace pingwell {

/// Says that the answers to the asks with these titles, at least one, weren't sent.
[[nodiscard]] QString unsentAnswersText(const QStringList &titles);

/// What outlives a session that its server refused: why it ended, which answers were not sent, and what was typed. It
/// stays in memory only. The texts go back to the same account at the same server and to nobody else. Main thread.
class RefusedSession
{
public:
    /// What was typed, by the alert it answers.
    using Drafts = QHash<QString, QString>;

    /// The session of `client` ended with these words of the service, which may be none.
    void begin(const APIClientPtr &client, const Account &account, const QString &message, const Drafts &drafts);
    /// An answer given in the session of `client`, which is about to end or `isOf` this, was not sent; `title` is the
    /// ask's.
    void addUnsentAnswer(const APIClientPtr &client, const QString &title);
    /// Keeps one more text of the session that ended.
    void keepDraft(const QString &alertID, const QString &text);
    [[nodiscard]] bool hasEnded() const { return m_hasEnded; }
    /// The session of `client` is the one that ended, and nobody has signed in since.
    [[nodiscard]] bool isOf(const APIClientPtr &client) const { return m_hasEnded && client == m_client; }

    /// Why the session ended and what was not sent, in sentences for the person.
    [[nodiscard]] QString text() const;
    /// Somebody signed in: what they typed before, if it was they; in any case it is kept no longer.
    [[nodiscard]] Drafts takeDrafts(const QUrl &baseURL, const Account &account);

private:
    APIClientPtr m_client;
    bool m_hasEnded = false;
    Account m_account;
    QString m_message;
    QStringList m_unsentTitles;
    Drafts m_drafts;
};

} // namespace pingwell
