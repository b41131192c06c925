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
    // Not before: who was killed in between would offer it again to a person who has switched it off by then.
    preferences.whenWritten([item](bool) { setLaunchAtLogin(*item, true); });
}

} // namespace pingwell
