#include "ui/signed_in_person.h"

#include "ui/display_text.h"

#include <QTextBoundaryFinder>

namespace pingwell {

namespace {

/// The first character as a reader sees it, which may take several units.
QString firstCharacter(const QString &word)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, word);
    return word.first(std::max<qsizetype>(finder.toNextBoundary(), 0)).toUpper();
}

} // namespace

QString initialsOf(const QString &name, const QString &email)
{
    const QStringList words = name.split(QChar(u' '), Qt::SkipEmptyParts);
    if (words.isEmpty())
        return firstCharacter(email);
    const QString first = firstCharacter(words.first());
    return words.size() > 1 ? first + firstCharacter(words.last()) : first;
}

void SignedInPerson::setStore(AppStore *store)
{
    if (m_store == store)
        return;
    if (m_store)
        m_store->disconnect(this);
    m_store = store;
    if (store) {
        connect(store, &AppStore::accountChanged, this, &SignedInPerson::personChanged);
        connect(store, &AppStore::invitationsChanged, this, &SignedInPerson::invitationCountChanged);
    }
    emit storeChanged();
    emit personChanged();
    emit invitationCountChanged();
}

QString SignedInPerson::name() const
{
    return m_store && m_store->account() ? displayLine(m_store->account()->name) : QString();
}

QString SignedInPerson::email() const
{
    return m_store && m_store->account() ? displayLine(m_store->account()->email) : QString();
}

QString SignedInPerson::nameAndEmail() const
{
    QStringList words{name(), email()};
    words.removeAll(QString());
    return words.join(QStringLiteral(", "));
}

} // namespace pingwell
