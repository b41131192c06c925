#include "desktop/login_item.h"
#include "model/report.h"

namespace pingwell {

namespace {

const QString offeredKey = QStringLiteral("pingwell.loginItem.offered");

} // namespace

bool setLaunchAtLogin(LoginItem &item, bool enabled)
{
    const std::optional<QString> problem = enabled ? item.registerProgram() : item.unregisterProgram();
    if (problem) {
        report("login item",
               QStringLiteral("%1 failed: %2")
                   .arg(enabled ? QLatin1StringView("register") : QLatin1StringView("unregister"), *problem));
    }
    return isLaunchAtLoginEnabled(item);
}

bool isLaunchAtLoginEnabled(const LoginItem &item)
{
    return item.status() == LoginItemStatus::enabled;
}

void offerLaunchAtLoginOnce(const std::shared_ptr<LoginItem> &item, Preferences &preferences)
{
    if (preferences.boolean(offeredKey).value_or(false) || !item->isProgramInstalled())
        return;
    preferences.setBoolean(offeredKey, true);
    // Only when the offer is on the disk: after a kill in between, the next start would switch it on again, although
    // the person may have switched it off.
    preferences.whenWritten([item](bool) { setLaunchAtLogin(*item, true); });
}

} // namespace pingwell
