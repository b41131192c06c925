#include "fields.h"
#include "routes.h"
#include "session_routes.h"
#include "wire.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace pingwell::devserver {

namespace {

/// The id of the workspace whose topics the call is about.
QString topicsWorkspace(ServiceState &state, const Call &call)
{
    return state.contributedWorkspace(call.parameter(u"workspace"), u"Viewers can't change topics."_s).id;
}

Reply createTopic(ServiceState &state, const Call &call)
{
    const QString workspaceId = topicsWorkspace(state, call);
    const QString name = requiredText(call.body, u"name"_s);
    const auto isTaken = [&](const Topic &topic) { return topic.workspaceId == workspaceId && topic.name == name; };
    if (std::any_of(state.topics.cbegin(), state.topics.cend(), isTaken))
        throw conflict(u"duplicate"_s, u"There is already a topic named %1."_s.arg(name));
    state.topics.append({newId(u"t"_s), workspaceId, name, Priority::normal, false, false, std::nullopt});
    return withData(toJson(state.topics.constLast()));
}

Reply changeTopic(ServiceState &state, const Call &call)
{
    Topic &topic = state.topic(topicsWorkspace(state, call), call.parameter(u"topic"));
    Topic changed = topic;
    changed.muted = flagField(call.body, u"muted"_s).value_or(topic.muted);
    changed.quietHours = flagField(call.body, u"quietHours"_s).value_or(topic.quietHours);
    changed.minPriority = wordField<Priority>(call.body, u"minPriority"_s).value_or(topic.minPriority);
    topic = changed;
    return withData(toJson(topic));
}

Reply deleteTopic(ServiceState &state, const Call &call)
{
    const QString id = state.topic(topicsWorkspace(state, call), call.parameter(u"topic")).id;
    state.topics.removeIf([&](const Topic &topic) { return topic.id == id; });
    return done();
}

} // namespace

void addTopicRoutes(Router &router, ServiceState &state)
{
    SessionRoutes routes(router, state);
    routes.add(u"POST"_s, u"/workspaces/{workspace}/topics"_s, createTopic);
    routes.add(u"PATCH"_s, u"/workspaces/{workspace}/topics/{topic}"_s, changeTopic);
    routes.add(u"DELETE"_s, u"/workspaces/{workspace}/topics/{topic}"_s, deleteTopic);
}

} // namespace pingwell::devserver
