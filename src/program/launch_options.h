#pragma once

#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <optional>

namespace pingwell {

/// What the program was started for; read once and then never changed.
struct LaunchOptions
{
    /// An automated test of the windows, on made-up data.
    bool isUITest = false;
    /// An automated test of the windows, against a real server.
    bool isLiveUITest = false;
    /// Made-up data and no service.
    bool isDemo = false;
    /// The test starts signed out.
    bool signedOut = false;
    /// The main window shows the panel's content, so that tests can reach it in an ordinary window.
    bool popoverPreview = false;
    /// The server named on the command line, normalised; it goes before every stored one.
    std::optional<QUrl> apiBaseURL = std::nullopt;
    /// A session handed in from outside; never read from the command line, where every program could see it.
    std::optional<QString> sessionToken = std::nullopt;

    /// Reads the arguments and the environment. An address that is none is passed over.
    [[nodiscard]] static LaunchOptions parse(const QStringList &arguments, const QProcessEnvironment &environment);

    /// The options of this process. Needs the application object, which knows the arguments.
    [[nodiscard]] static const LaunchOptions &current();

    /// One of the modes of automated tests: their windows open by themselves and may be looked into.
    [[nodiscard]] bool isAutomated() const { return isUITest || isLiveUITest; }
    /// The mode that talks to a service.
    [[nodiscard]] bool isLive() const { return !isUITest && !isDemo; }

    friend bool operator==(const LaunchOptions &, const LaunchOptions &) = default;
};

} // namespace pingwell
