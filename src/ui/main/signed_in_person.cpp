#include "ui/main/signed_in_person.h"

#include "text/display_text.h"
#include "text/initials.h"
#include "ui/engine/replace_store.h"

namespace pingwell {

void SignedInPerson::setStore(AppStore *store)
{
    if (!replaceStore(m_store, store, this))
        return;
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

QString SignedInPerson::initials() const
{
    return initialsOf(name().isEmpty() ? email().section(QChar(u'@'), 0, 0) : name());
}

QString SignedInPerson::nameAndEmail() const
{
    QStringList words{name(), email()};
    words.removeAll(QString());
    return words.join(QStringLiteral(", "));
}

} // namespace pingwell
