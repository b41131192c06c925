#pragma once

#include "api/dashboard.h"
#include "api/wire_reader.h"

namespace pingwell {

/// What the person's plan comprises, as it travels; only its display name is shown.
struct EntitlementsDTO
{
    std::optional<std::string_view> name;

    static EntitlementsDTO read(WireObject object);
};

/// The plan's display name, with what it is called when the service doesn't say.
[[nodiscard]] QString planName(const std::optional<EntitlementsDTO> &entitlements,
                               std::optional<std::string_view> otherwise = std::nullopt);

/// The signed-in person as it travels.
struct UserDTO
{
    std::optional<std::string_view> name;
    std::optional<std::string_view> email;
    std::optional<std::string_view> provider;
    std::optional<std::string_view> plan;

    static UserDTO read(WireObject object);
    [[nodiscard]] Account mapped(const std::optional<EntitlementsDTO> &entitlements) const;
};

/// A session as it travels.
struct SessionDTO
{
    std::optional<std::string_view> token;
    UserDTO user;
    std::optional<EntitlementsDTO> entitlements;

    static SessionDTO read(WireObject object);
    [[nodiscard]] Session mapped(WireStrings &strings) const;
};

/// The sign-in providers a server offers, as they travel.
struct ProvidersDTO
{
    WireTexts providers;

    static ProvidersDTO read(WireObject object);
    /// Those this program knows, each once, in the enumeration's order.
    [[nodiscard]] QList<AuthProvider> mapped(WireStrings &strings) const;
};

} // namespace pingwell
