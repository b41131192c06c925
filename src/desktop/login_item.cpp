#include "desktop/login_item.h"

#include <cstdio>

namespace pingwell {

namespace {

const QString offeredKey = QStringLiteral("pingwell.loginItem.offered");

} // namespace

bool setLaunchAtLogin(LoginItem &item, bool enabled)
{
    const std::optional<QString> problem = enabled ? item.registerProgram() : item.unregisterProgram();
    if (problem) {
        std::printf("[login item] %s failed: %s\n", enabled ? "register" : "unregister", qUtf8Printable(*problem));
        std::fflush(stdout);
    }
    return isLaunchAtLoginEnabled(item);
}

bool isLaunchAtLoginEnabled(const LoginItem &item)
{
    return item.status() == LoginItemStatus::enabled;
}

void offerLaunchAtLoginOnce(LoginItem &item, Preferences &preferences)
{
    if (preferences.boolean(offeredKey).value_or(false) || !item.isProgramInstalled())
        return;
    preferences.setBoolean(offeredKey, true);
    setLaunchAtLogin(item, true);
}

} // namespace pingwell
