#pragma once

#include "router.h"
#include "service_state.h"

namespace pingwell::devserver {

class FaultTable;
class RequestLog;
class WaitingAgents;

// Each adds the routes of one subject; what they are given must outlive the router.

/// Providers, the browser's sign-in pages, the exchange of a code, the person and their settings.
void addAuthRoutes(Router &router, ServiceState &state);
/// The dashboard, and what a person does with alerts.
void addAlertRoutes(Router &router, ServiceState &state);
void addWorkspaceRoutes(Router &router, ServiceState &state);
void addMemberRoutes(Router &router, ServiceState &state);
void addTopicRoutes(Router &router, ServiceState &state);
/// Invitations to the person.
void addInvitationRoutes(Router &router, ServiceState &state);
void addDeviceRoutes(Router &router, ServiceState &state);
/// The agent's side: posting alerts and waiting for answers.
void addAgentRoutes(Router &router, ServiceState &state, WaitingAgents &waiting);
/// What tests use: faults, sessions, the requests received, many alerts at once.
void addTestRoutes(Router &router, ServiceState &state, FaultTable &faults, RequestLog &requests);

} // namespace pingwell::devserver
