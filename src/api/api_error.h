#pragma once

#include <QString>

#include <optional>

namespace pingwell {

/// The one error of the service client; its message is worded for the person.
class APIError
{
public:
    APIError(int status, std::optional<QString> code, QString message);

    /// No answer arrived: no network, name, certificate, or time ran out.
    static APIError offline();
    /// The service accepted, but its answer isn't what this program understands.
    static APIError badResponse();
    /// The service's answer is larger than this program takes in.
    static APIError tooLarge();

    /// HTTP status; 0 when no HTTP answer arrived, 500 for an answer that could not be taken in or decoded.
    [[nodiscard]] int status() const { return m_status; }
    /// The service's code, or "offline", "bad_response" or "too_large".
    [[nodiscard]] const std::optional<QString> &code() const { return m_code; }
    [[nodiscard]] const QString &message() const { return m_message; }

    friend bool operator==(const APIError &left, const APIError &right)
    {
        return left.m_status == right.m_status && left.m_code == right.m_code && left.m_message == right.m_message;
    }

private:
    int m_status;
    std::optional<QString> m_code;
    QString m_message;
};

/// What the person reads when no answer arrived and the service could not say why.
[[nodiscard]] QString unreachableMessage();

} // namespace pingwell
