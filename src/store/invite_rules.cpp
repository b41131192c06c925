#include "store/invite_rules.h"

#include <QRegularExpression>

#include <algorithm>

namespace pingwell {

QString normalizedEmail(const QString &email)
{
    return email.trimmed().toLower();
}

bool isValidEmail(const QString &text)
{
    // \s alone knows only ASCII's white space; an address with any other kind inside is no better.
    static const QRegularExpression form(
        QRegularExpression::anchoredPattern(QStringLiteral(R"([^@\s]+@[^@\s]+\.[^@\s.]{2,})")),
        QRegularExpression::UseUnicodePropertiesOption);
    return form.match(text).hasMatch();
}

std::optional<InviteError> inviteError(const QString &email, const QList<Member> &members)
{
    const QString normalized = normalizedEmail(email);
    if (!isValidEmail(normalized))
        return InviteError::invalidEmail;
    const bool isKnown = std::any_of(members.begin(), members.end(), [&normalized](const Member &member) {
        return normalizedEmail(member.email) == normalized;
    });
    return isKnown ? std::optional(InviteError::duplicate) : std::nullopt;
}

} // namespace pingwell
