#pragma once

#include <QString>

#include <optional>

namespace pingwell {

/// The one error type of the service client. Its message is written for the person.
class APIError
{
public:
    APIError(int status, std::optional<QString> code, QString message);

    /// No response arrived: no network, unknown name, invalid certificate, or time-out.
    static APIError offline();
    /// The service accepted the request, but this program can't read its response.
    static APIError badResponse();
    /// The service's response is larger than this program accepts.
    static APIError tooLarge();

    /// The HTTP status; 0 when no HTTP response arrived, 500 for a response that was too large or could not be decoded.
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

/// The message for the person when no response arrived and the service could not give a reason.
[[nodiscard]] QString unreachableMessage();

} // namespace pingwell
