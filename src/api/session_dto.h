#pragma once

#include "api/dashboard.h"
#include "api/wire_reader.h"

namespace pingwell {

/// The wire record of the person's plan; only its display name is shown.
struct EntitlementsDTO
{
    std::optional<std::string_view> name;

    static EntitlementsDTO read(WireObject object);
};

/// The plan's display name, or the default name where the service sends none.
[[nodiscard]] QString planName(const std::optional<EntitlementsDTO> &entitlements,
                               std::optional<std::string_view> otherwise = std::nullopt);

/// The wire record of the signed-in person.
struct UserDTO
{
    std::optional<std::string_view> name;
    std::optional<std::string_view> email;
    std::optional<std::string_view> provider;
    std::optional<std::string_view> plan;

    static UserDTO read(WireObject object);
    [[nodiscard]] Account mapped(const std::optional<EntitlementsDTO> &entitlements) const;
};

/// The wire record of a session.
struct SessionDTO
{
    std::optional<std::string_view> token;
    UserDTO user;
    std::optional<EntitlementsDTO> entitlements;

    static SessionDTO read(WireObject object);
    [[nodiscard]] Session mapped(WireStrings &strings) const;
};

/// The wire record of the sign-in providers that a server offers.
struct ProvidersDTO
{
    WireTexts providers;

    static ProvidersDTO read(WireObject object);
    /// The providers that this program knows, each once, in the enumeration's order.
    [[nodiscard]] QList<AuthProvider> mapped(WireStrings &strings) const;
};

} // namespace pingwell
