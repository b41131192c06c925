#include "store/refused_session.h"

#include "text/text_cut.h"

#include <utility>

namespace pingwell {

namespace {

/// How much of a title is told; more is for the screen that shows the ask.
constexpr qsizetype longestTitle = 80;

QString shortened(const QString &title)
{
    const QString line = title.simplified();
    const QString cut = withinUnits(line, longestTitle);
    return cut == line ? line : QString(cut + u'…');
}

/// An account without an address can't be told from another one of the same name.
bool areSame(const Account &left, const Account &right)
{
    return !left.email.isEmpty() && left.email == right.email && left.provider == right.provider;
}

} // namespace

QString unsentAnswersText(const QStringList &titles)
{
    if (titles.size() > 1)
        return QStringLiteral("Your answers to %1 questions weren't sent.").arg(titles.size());
    const QString title = shortened(titles.first());
    if (title.isEmpty())
        return QStringLiteral("Your answer wasn't sent.");
    return QStringLiteral("Your answer to “%1” wasn't sent.").arg(title);
}

void RefusedSession::begin(const APIClientPtr &client, const Account &account, const QString &message,
                           const Drafts &drafts)
{
    if (m_client != client)
        *this = {};
    m_client = client;
    m_hasEnded = true;
    m_account = account;
    m_message = message;
    m_drafts = drafts;
}

void RefusedSession::addUnsentAnswer(const APIClientPtr &client, const QString &title)
{
    if (m_client != client)
        *this = {};
    m_client = client;
    m_unsentTitles << title;
}

void RefusedSession::keepDraft(const QString &alertID, const QString &text)
{
    m_drafts.insert(alertID, text);
}

QString RefusedSession::text() const
{
    if (m_unsentTitles.isEmpty())
        return m_message;
    const QString unsent = unsentAnswersText(m_unsentTitles);
    return m_message.isEmpty() ? unsent : QString(m_message + u' ' + unsent);
}

RefusedSession::Drafts RefusedSession::takeDrafts(const QUrl &baseURL, const Account &account)
{
    const RefusedSession ended = std::exchange(*this, {});
    const bool isSame = ended.m_hasEnded && ended.m_client->baseURL() == baseURL && areSame(ended.m_account, account);
    return isSame ? ended.m_drafts : Drafts();
}

} // namespace pingwell
