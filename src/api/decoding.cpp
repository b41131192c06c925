#include "api/decoding.h"

#include <algorithm>

namespace pingwell {

namespace {

/// Whether the text has a character that a person can read.
bool isReadable(const QString &text)
{
    const QList<uint> characters = text.toUcs4();
    return std::any_of(characters.begin(), characters.end(),
                       [](uint character) { return QChar::isPrint(character) && !QChar::isSpace(character); });
}

QString defaultMessage(int status)
{
    if (status == 401)
        return QStringLiteral("Your session has ended. Sign in again.");
    return QStringLiteral("Something went wrong (HTTP %1). Try again.").arg(status);
}

} // namespace

ErrorEnvelope ErrorEnvelope::read(WireObject object)
{
    ErrorEnvelope envelope;
    envelope.success = object.flag("success");
    envelope.code = object.string("code");
    envelope.message = WireStrings::text(object.string("message"));
    if (envelope.message && !isReadable(*envelope.message))
        envelope.message.reset();
    return envelope;
}

bool isSuccess(int status)
{
    return status >= 200 && status <= 299;
}

std::optional<APIError> failureOf(int status, const WireDocument &body)
{
    ErrorEnvelope envelope;
    if (body.root())
        envelope = ErrorEnvelope::read(*body.root());
    if (isSuccess(status) && envelope.success.value_or(true))
        return std::nullopt;
    const QString message = envelope.message.value_or(defaultMessage(status));
    // A failure that arrives with status 200 is reported with status 400.
    const int reported = status == 200 ? 400 : status;
    return APIError(reported, WireStrings::text(envelope.code), message);
}

Outcome<std::optional<QString>> messageOrFailureOf(const HTTPResponse &response)
{
    const WireDocument body(response.body);
    if (const std::optional<APIError> failure = failureOf(response.status, body))
        return *failure;
    if (!body.root())
        return std::optional<QString>();
    return ErrorEnvelope::read(*body.root()).message;
}

} // namespace pingwell
