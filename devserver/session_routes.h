#pragma once

#include "router.h"

namespace pingwell::devserver {

struct ServiceState;

/// Adds the routes of the signed-in person that need nothing but the state, which must outlive the router.
class SessionRoutes
{
public:
    SessionRoutes(Router &router, ServiceState &state)
        : m_router(router)
        , m_state(state)
    {
    }

    void add(const QString &method, const QString &pattern, Reply (*handler)(ServiceState &, const Call &))
    {
        m_router.add(method, pattern, Access::session,
                     [&state = m_state, handler](const Call &call) { return handler(state, call); });
    }

private:
    Router &m_router;
    ServiceState &m_state;
};

} // namespace pingwell::devserver
