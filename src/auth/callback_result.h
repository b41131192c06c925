#pragma once

#include <QString>
#include <QUrl>

namespace pingwell {

/// Where the browser returns to after a sign-in.
inline const QString signInCallbackURL = QStringLiteral("pingwell://auth/callback");
inline const QString signInCallbackScheme = QStringLiteral("pingwell");

/// The result in the browser's redirect: a one-time code, or an error.
struct CallbackResult
{
    enum class Kind { code, error };

    Kind kind = Kind::error;
    QString value;

    static CallbackResult code(const QString &value) { return {Kind::code, value}; }
    static CallbackResult error(const QString &reason) { return {Kind::error, reason}; }

    friend bool operator==(const CallbackResult &, const CallbackResult &) = default;
};

/// Reads the query of a callback URL. The caller checks scheme, host and path.
[[nodiscard]] CallbackResult parseCallback(const QUrl &url);

/// The message for the person about a callback's error.
[[nodiscard]] QString signInErrorMessage(const QString &reason);

} // namespace pingwell
