#pragma once

#include "model/account.h"

#include <QByteArray>

#include <optional>

namespace pingwell {

/// The account as it is kept between runs: a JSON object (RFC 8259) of "name", "email", "provider" and "plan".
[[nodiscard]] QByteArray toJSON(const Account &account);

/// Reads what `toJSON` wrote; none when a key is missing or holds something else.
[[nodiscard]] std::optional<Account> accountFromJSON(const QByteArray &json);

} // namespace pingwell
