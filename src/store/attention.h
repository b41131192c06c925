#pragma once

#include <QString>

#include <functional>

namespace pingwell {

/// What the person has in front of them right now. The windows know it and tell the store; a program without windows
/// has nobody's attention. Main thread.
struct Attention
{
    /// A window of the program is shown and has the focus: a toast in it is seen.
    std::function<bool()> isOnWindow = [] { return false; };
    /// That window shows this alert.
    std::function<bool(const QString &alertID)> isOnAlert = [](const QString &) { return false; };
};

} // namespace pingwell
