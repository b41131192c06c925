#include "api/session_dto.h"

namespace pingwell {

EntitlementsDTO EntitlementsDTO::read(WireObject object)
{
    EntitlementsDTO dto;
    dto.name = object.string("name");
    return dto;
}

QString planName(const std::optional<EntitlementsDTO> &entitlements, std::optional<std::string_view> otherwise)
{
    if (entitlements && entitlements->name)
        return WireStrings::text(*entitlements->name);
    return WireStrings::text(otherwise.value_or("Cloud"));
}

UserDTO UserDTO::read(WireObject object)
{
    UserDTO dto;
    dto.name = object.string("name");
    dto.email = object.string("email");
    dto.provider = object.string("provider");
    dto.plan = object.string("plan");
    return dto;
}

Account UserDTO::mapped(const std::optional<EntitlementsDTO> &entitlements) const
{
    Account account;
    account.name = WireStrings::text(name && !name->empty() ? *name : "You");
    account.email = WireStrings::text(email.value_or(""));
    account.provider = fromWord<AuthProvider>(provider).value_or(AuthProvider::google);
    account.plan = planName(entitlements, plan);
    return account;
}

SessionDTO SessionDTO::read(WireObject object)
{
    SessionDTO dto;
    dto.token = object.string("token");
    dto.user = required(object.record<UserDTO>("user"));
    dto.entitlements = object.record<EntitlementsDTO>("entitlements");
    return dto;
}

Session SessionDTO::mapped(WireStrings &) const
{
    Session session;
    session.token = WireStrings::text(token);
    session.account = user.mapped(entitlements);
    return session;
}

ProvidersDTO ProvidersDTO::read(WireObject object)
{
    return {.providers = required(object.texts("providers"))};
}

QList<AuthProvider> ProvidersDTO::mapped(WireStrings &) const
{
    QList<AuthProvider> offered;
    for (const AuthProvider provider : allCases<AuthProvider>()) {
        bool isOffered = false;
        providers.forEach([provider, &isOffered](std::string_view word) {
            isOffered = isOffered || fromWord<AuthProvider>(word) == provider;
        });
        if (isOffered)
            offered.append(provider);
    }
    return offered;
}

} // namespace pingwell
