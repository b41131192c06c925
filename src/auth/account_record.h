#pragma once

#include "model/account.h"

#include <QByteArray>

#include <optional>

namespace pingwell {

/// The account as it is remembered between runs: a JSON object (RFC 8259, UTF-8) with the keys "name", "email",
/// "provider" and "plan".
[[nodiscard]] QByteArray encodedAccount(const Account &account);

/// The account that `record` holds; none unless all four keys are there, each a text, and the provider is a known one.
/// Further keys are left unread, so that a later version may add some.
[[nodiscard]] std::optional<Account> decodedAccount(const QByteArray &record);

} // namespace pingwell
