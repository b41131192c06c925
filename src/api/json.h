#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

#include <concepts>
#include <cstdint>
#include <variant>

namespace pingwell {

/// One value of a request body: text, an integer, a flag, or null.
class JSON
{
public:
    JSON(std::nullptr_t) {}
    JSON(const QString &text)
        : m_value(text)
    {
    }
    JSON(const char16_t *text)
        : m_value(QString::fromUtf16(text))
    {
    }
    JSON(std::same_as<bool> auto flag)
        : m_value(flag)
    {
    }
    template<std::integral Integer>
    requires(!std::same_as<Integer, bool>) JSON(Integer integer)
        : m_value(std::int64_t{integer})
    {
    }

    /// The value as JSON text (RFC 8259), UTF-8.
    [[nodiscard]] QByteArray encoded() const;

    /// The value, where it is of that type: `QString`, `std::int64_t` or `bool`.
    template<typename Type>
    [[nodiscard]] const Type *as() const
    {
        return std::get_if<Type>(&m_value);
    }

    friend bool operator==(const JSON &, const JSON &) = default;

private:
    std::variant<std::nullptr_t, QString, std::int64_t, bool> m_value = nullptr;
};

/// A request body: one JSON object.
using JSONObject = QMap<QString, JSON>;

/// The object as JSON text (RFC 8259), UTF-8.
[[nodiscard]] QByteArray encoded(const JSONObject &object);

} // namespace pingwell
