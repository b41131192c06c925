#include "fields.h"
#include "routes.h"
#include "session_routes.h"
#include "wire.h"

using namespace Qt::StringLiterals;

namespace pingwell::devserver {

namespace {

Reply registerDevice(ServiceState &state, const Call &call)
{
    const QString name = requiredText(call.body, u"name"_s);
    const QString version = requiredText(call.body, u"version"_s);
    const auto platform = wordField<DevicePlatform>(call.body, u"platform"_s);
    if (!platform)
        throw badRequest(u"“platform” is missing."_s);
    state.devices.append({newId(u"d"_s), name, *platform, version, call.now});
    return withData(toJson(state.devices.constLast()));
}

Reply takeHeartbeat(ServiceState &state, const Call &call)
{
    Device &device = state.device(call.parameter(u"device"));
    device.version = requiredText(call.body, u"version"_s);
    device.lastSeen = call.now;
    return withData(toJson(device));
}

Reply unregisterDevice(ServiceState &state, const Call &call)
{
    const QString id = state.device(call.parameter(u"device")).id;
    state.devices.removeIf([&](const Device &device) { return device.id == id; });
    return done();
}

} // namespace

void addDeviceRoutes(Router &router, ServiceState &state)
{
    SessionRoutes routes(router, state);
    routes.add(u"POST"_s, u"/devices"_s, registerDevice);
    routes.add(u"POST"_s, u"/devices/{device}/heartbeat"_s, takeHeartbeat);
    routes.add(u"DELETE"_s, u"/devices/{device}"_s, unregisterDevice);
}

} // namespace pingwell::devserver
