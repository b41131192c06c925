#pragma once

#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <optional>

namespace pingwell {

/// What the command line and the environment ask for; read once at the start, then constant.
struct LaunchOptions
{
    /// An automated test of the windows with made-up data.
    bool isUITest = false;
    /// An automated test of the windows with a real server.
    bool isLiveUITest = false;
    /// The demo: made-up data and no service.
    bool isDemo = false;
    /// The test starts signed out.
    bool signedOut = false;
    /// The main window shows the panel's content, so that tests can reach it in an ordinary window.
    bool popoverPreview = false;
    /// The server named on the command line, normalised. It takes precedence over every stored one.
    std::optional<QUrl> apiBaseURL = std::nullopt;
    /// A session token that the hosting code sets; not on the command line, where every program could read it.
    std::optional<QString> sessionToken = std::nullopt;

    /// Reads the arguments and the environment. An invalid server address is ignored.
    [[nodiscard]] static LaunchOptions parse(const QStringList &arguments, const QProcessEnvironment &environment);

    /// The options of this process. Needs the application object, which has the arguments.
    [[nodiscard]] static const LaunchOptions &current();

    /// A mode for automated tests: its windows open without a click, and tests may read their content.
    [[nodiscard]] bool isAutomated() const { return isUITest || isLiveUITest; }
    /// The mode uses a service.
    [[nodiscard]] bool isLive() const { return !isUITest && !isDemo; }

    friend bool operator==(const LaunchOptions &, const LaunchOptions &) = default;
};

} // namespace pingwell
