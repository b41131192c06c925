#include "store/seed_data.h"

namespace pingwell {

Account demoAccount(AuthProvider provider)
{
    return {.name = QStringLiteral("Robin Vale"),
            .email = QStringLiteral("robin@vale.example"),
            .provider = provider,
            .plan = QStringLiteral("Cloud")};
}

} // namespace pingwell
