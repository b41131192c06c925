#pragma once

#include <QLatin1StringView>

namespace pingwell {

/// What this program is called where names must be unique: on the session bus, in the names of its desktop entry, its
/// preferences and its keyring item (Desktop Entry Specification, file naming). It never changes: what a person's
/// desktop remembers of the program hangs on it.
inline constexpr QLatin1StringView programID("com.pingwell.mac");

/// The file name of the program's desktop entry.
inline constexpr QLatin1StringView desktopEntryFile("com.pingwell.mac.desktop");

/// The program's place on a bus it serves (Desktop Entry Specification, D-Bus activation).
inline constexpr QLatin1StringView programBusPath("/com/pingwell/mac");

/// Suites of the two modes of automated tests: beside the person's program they have a name and preferences of their
/// own.
inline constexpr QLatin1StringView uiTestID("com.pingwell.mac.uitest");
inline constexpr QLatin1StringView liveUITestID("com.pingwell.mac.uitest-live");

} // namespace pingwell
