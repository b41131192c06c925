#pragma once

#include <QString>
#include <QUrl>

namespace pingwell {

/// Where the browser returns to after a sign-in.
inline const QString signInCallbackURL = QStringLiteral("pingwell://auth/callback");
inline const QString signInCallbackScheme = QStringLiteral("pingwell");

/// What the browser came back with: a one-time code, or the reason for none.
struct CallbackResult
{
    enum class Kind { code, error };

    Kind kind = Kind::error;
    QString value;

    static CallbackResult code(const QString &value) { return {Kind::code, value}; }
    static CallbackResult error(const QString &reason) { return {Kind::error, reason}; }

    friend bool operator==(const CallbackResult &, const CallbackResult &) = default;
};

/// Reads a callback's query; scheme, host and path are the caller's to check.
[[nodiscard]] CallbackResult parseCallback(const QUrl &url);

/// What the person is told for a callback's error.
[[nodiscard]] QString signInErrorMessage(const QString &reason);

} // namespace pingwell
