#pragma once

#include "desktop/preferences.h"

#include <QString>

#include <memory>
#include <optional>

namespace pingwell {

/// Whether the desktop starts the program at the next log-in.
enum class LoginItemStatus { notRegistered, enabled, requiresApproval, notFound };

/// How the desktop starts this program when the person logs in. Main thread.
class LoginItem
{
public:
    virtual ~LoginItem() = default;

    /// Both return an error message; none on success.
    [[nodiscard]] virtual std::optional<QString> registerProgram() = 0;
    [[nodiscard]] virtual std::optional<QString> unregisterProgram() = 0;

    [[nodiscard]] virtual LoginItemStatus status() const = 0;

    /// Opens the place where the person agrees to it, on a desktop that requires their agreement.
    virtual void openSettings() {}

    /// Whether the program runs from an installed location, not from a download or a build folder.
    [[nodiscard]] virtual bool isProgramInstalled() const = 0;
};

/// Switches start at log-in on or off and returns whether it is on now; a failure is written to standard output.
bool setLaunchAtLogin(LoginItem &item, bool enabled);

/// Reads the state from the desktop on each call, because the person may have changed it there.
[[nodiscard]] bool isLaunchAtLoginEnabled(const LoginItem &item);

/// Switches start at log-in on, once for each installation. A program that is not installed does nothing, so that the
/// installed one can still do it.
void offerLaunchAtLoginOnce(const std::shared_ptr<LoginItem> &item, Preferences &preferences);

} // namespace pingwell
