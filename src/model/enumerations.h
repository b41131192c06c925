#pragma once

#include "model/raw_value.h"

#include <compare>

namespace pingwell {

/// The priority of an alert, ascending; silent is the lowest.
enum class Priority { silent, normal, high, critical };

/// Whether an alert is a notice, which only informs, or an ask, which waits for an answer.
enum class AlertKind { notify, ask };

/// How an ask is answered: by choosing one of its actions, or by text.
enum class AnswerType { choice, text };

/// What the service does when nobody answers an ask in time: expire it, continue with its first option, or
/// escalate it to the workspace's admins.
enum class TimeoutAction { expire, default_, escalate };

/// The person's role in a workspace, from the most rights to the fewest.
enum class WorkspaceRole { owner, admin, member, viewer };

/// A personal workspace, or a team's.
enum class WorkspaceKind { personal, team };

/// Whether a member has joined the workspace or is only invited.
enum class MemberStatus { active, invited };

/// The operating system of a registered device.
enum class DevicePlatform { android, macos, windows, ios, linux_, web };

/// The identity provider of a sign-in.
enum class AuthProvider { google, github };

/// The managed cloud service, or a self-hosted server.
enum class ServerKind { cloud, selfHosted };

/// The sections of the main window, in sidebar order.
enum class SidebarSection { inbox, topics, team, settings };

/// Why an invitation is refused before it is sent.
enum class InviteError { invalidEmail, duplicate, notAllowed };

/// Whether the desktop shows this program's notifications.
enum class NotificationPermission { unknown, allowed, notAsked, denied };

template<>
inline constexpr std::array<RawValue<Priority>, 4> rawValues<Priority>{{
    {Priority::silent, QLatin1StringView("silent")},
    {Priority::normal, QLatin1StringView("normal")},
    {Priority::high, QLatin1StringView("high")},
    {Priority::critical, QLatin1StringView("critical")},
}};

template<>
inline constexpr std::array<RawValue<AlertKind>, 2> rawValues<AlertKind>{{
    {AlertKind::notify, QLatin1StringView("notify")},
    {AlertKind::ask, QLatin1StringView("ask")},
}};

template<>
inline constexpr std::array<RawValue<AnswerType>, 2> rawValues<AnswerType>{{
    {AnswerType::choice, QLatin1StringView("choice")},
    {AnswerType::text, QLatin1StringView("text")},
}};

template<>
inline constexpr std::array<RawValue<TimeoutAction>, 3> rawValues<TimeoutAction>{{
    {TimeoutAction::expire, QLatin1StringView("expire")},
    {TimeoutAction::default_, QLatin1StringView("default")},
    {TimeoutAction::escalate, QLatin1StringView("escalate")},
}};

template<>
inline constexpr std::array<RawValue<WorkspaceRole>, 4> rawValues<WorkspaceRole>{{
    {WorkspaceRole::owner, QLatin1StringView("owner")},
    {WorkspaceRole::admin, QLatin1StringView("admin")},
    {WorkspaceRole::member, QLatin1StringView("member")},
    {WorkspaceRole::viewer, QLatin1StringView("viewer")},
}};

template<>
inline constexpr std::array<RawValue<WorkspaceKind>, 2> rawValues<WorkspaceKind>{{
    {WorkspaceKind::personal, QLatin1StringView("personal")},
    {WorkspaceKind::team, QLatin1StringView("team")},
}};

template<>
inline constexpr std::array<RawValue<MemberStatus>, 2> rawValues<MemberStatus>{{
    {MemberStatus::active, QLatin1StringView("active")},
    {MemberStatus::invited, QLatin1StringView("invited")},
}};

template<>
inline constexpr std::array<RawValue<DevicePlatform>, 6> rawValues<DevicePlatform>{{
    {DevicePlatform::android, QLatin1StringView("android")},
    {DevicePlatform::macos, QLatin1StringView("macos")},
    {DevicePlatform::windows, QLatin1StringView("windows")},
    {DevicePlatform::ios, QLatin1StringView("ios")},
    {DevicePlatform::linux_, QLatin1StringView("linux")},
    {DevicePlatform::web, QLatin1StringView("web")},
}};

template<>
inline constexpr std::array<RawValue<AuthProvider>, 2> rawValues<AuthProvider>{{
    {AuthProvider::google, QLatin1StringView("google")},
    {AuthProvider::github, QLatin1StringView("github")},
}};

template<>
inline constexpr std::array<RawValue<ServerKind>, 2> rawValues<ServerKind>{{
    {ServerKind::cloud, QLatin1StringView("cloud")},
    {ServerKind::selfHosted, QLatin1StringView("selfHosted")},
}};

template<>
inline constexpr std::array<RawValue<SidebarSection>, 4> rawValues<SidebarSection>{{
    {SidebarSection::inbox, QLatin1StringView("inbox")},
    {SidebarSection::topics, QLatin1StringView("topics")},
    {SidebarSection::team, QLatin1StringView("team")},
    {SidebarSection::settings, QLatin1StringView("settings")},
}};

} // namespace pingwell
