#pragma once

#include "model/member.h"

#include <QList>
#include <QString>

#include <optional>

namespace pingwell {

/// An e-mail address as addresses are compared: without blanks around it, in lower case.
[[nodiscard]] QString normalizedEmail(const QString &email);

/// Whether the text has the form of an e-mail address; what lies behind it only a message can tell.
[[nodiscard]] bool isValidEmail(const QString &text);

/// Why that address cannot be invited beside these members, the invited ones among them; none when it can.
[[nodiscard]] std::optional<InviteError> inviteError(const QString &email, const QList<Member> &members);

} // namespace pingwell
