#pragma once

#include "desktop/preferences.h"

#include <QString>

#include <memory>
#include <optional>

namespace pingwell {

/// What the desktop would do with the program at the next log-in.
enum class LoginItemStatus { notRegistered, enabled, requiresApproval, notFound };

/// The desktop's way to start this program when the person logs in. Main thread.
class LoginItem
{
public:
    virtual ~LoginItem() = default;

    /// Both return what went wrong, in words; none when all went well.
    [[nodiscard]] virtual std::optional<QString> registerProgram() = 0;
    [[nodiscard]] virtual std::optional<QString> unregisterProgram() = 0;

    [[nodiscard]] virtual LoginItemStatus status() const = 0;

    /// Opens the place where the person consents, on a desktop that asks for consent.
    virtual void openSettings() {}

    /// Whether the program runs from where programs are installed, not from a download or a build folder.
    [[nodiscard]] virtual bool isProgramInstalled() const = 0;
};

/// Switches starting at log-in and returns whether it is on now; a failure is written to standard output.
bool setLaunchAtLogin(LoginItem &item, bool enabled);

/// Asked of the desktop each time: the person may have changed it there.
[[nodiscard]] bool isLaunchAtLoginEnabled(const LoginItem &item);

/// Switches starting at log-in on, once in the life of an installation; a program that is not installed keeps the offer
/// for the day it is.
void offerLaunchAtLoginOnce(const std::shared_ptr<LoginItem> &item, Preferences &preferences);

} // namespace pingwell
