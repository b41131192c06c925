#include "auth/token_store.h"

namespace pingwell {

TokenStore::~TokenStore() = default;

MemoryTokenStore::MemoryTokenStore(std::optional<QString> token)
    : m_token(std::move(token))
{
}

} // namespace pingwell
