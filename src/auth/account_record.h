#pragma once

#include "model/account.h"

#include <QByteArray>

#include <optional>

namespace pingwell {

/// The account as the preferences store it: a JSON object (RFC 8259, UTF-8) with the keys "name", "email", "provider"
/// and "plan".
[[nodiscard]] QByteArray encodedAccount(const Account &account);

/// The account in `record`; none unless all four keys are present, each is a text, and the provider is a known one.
/// Other keys are ignored, so that a later version may add some.
[[nodiscard]] std::optional<Account> decodedAccount(const QByteArray &record);

} // namespace pingwell
