#pragma once

#include <QString>

#include <exception>
#include <optional>

namespace pingwell {

/// The one error of the service client; its message is worded for the person.
class APIError final : public std::exception
{
public:
    APIError(int status, std::optional<QString> code, QString message);

    /// No answer arrived: no network, name, certificate, or time ran out.
    static APIError offline();
    /// The service accepted, but its answer isn't what this program understands.
    static APIError badResponse();
    /// The service's answer is larger than this program takes in.
    static APIError tooLarge();
    /// What was thrown, as the person is to be told of it: anything but an `APIError` means that no answer arrived.
    static APIError from(std::exception_ptr thrown);

    /// HTTP status; 0 when no HTTP answer arrived, 500 for an answer that could not be taken in or decoded.
    [[nodiscard]] int status() const { return m_status; }
    /// The service's code, or "offline", "bad_response" or "too_large".
    [[nodiscard]] const std::optional<QString> &code() const { return m_code; }
    [[nodiscard]] const QString &message() const { return m_message; }
    /// For a log, where nothing that the service says may stand.
    [[nodiscard]] const char *what() const noexcept override { return "the service refused, or can't be reached"; }

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
