#pragma once

#include <QLatin1StringView>

namespace pingwell {

/// The program's identifier wherever names must be unique: its name on the session bus, its desktop entry, its
/// preferences and its keyring item (freedesktop.org Desktop Entry, file naming). It never changes, because the desktop
/// stores the person's choices for the program under it.
inline constexpr QLatin1StringView programID("com.pingwell.mac");

/// The file name of the program's desktop entry.
inline constexpr QLatin1StringView desktopEntryFile("com.pingwell.mac.desktop");

/// The program's object path on the session bus (freedesktop.org Desktop Entry, D-Bus activation).
inline constexpr QLatin1StringView programBusPath("/com/pingwell/mac");

/// Suites of the two modes of automated tests. A test has its own bus name and preferences, so that it can run beside
/// the person's program.
inline constexpr QLatin1StringView uiTestID("com.pingwell.mac.uitest");
inline constexpr QLatin1StringView liveUITestID("com.pingwell.mac.uitest-live");

} // namespace pingwell
