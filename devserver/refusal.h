#pragma once

#include <QString>

namespace pingwell::devserver {

/// Thrown by a handler that will not do what it was asked; becomes the error answer.
struct Refusal
{
    int status = 400;
    /// The machine-readable word.
    QString code;
    /// The sentence for the person.
    QString message;
};

inline Refusal badRequest(const QString &message)
{
    return {400, QStringLiteral("bad_request"), message};
}
inline Refusal forbidden(const QString &message)
{
    return {403, QStringLiteral("forbidden"), message};
}
inline Refusal notFound(const QString &message)
{
    return {404, QStringLiteral("not_found"), message};
}
inline Refusal conflict(const QString &code, const QString &message)
{
    return {409, code, message};
}

} // namespace pingwell::devserver
