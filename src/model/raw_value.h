#pragma once

#include <QLatin1StringView>
#include <QString>

#include <algorithm>
#include <array>
#include <optional>

namespace pingwell {

/// One enumerator, and its word in the service's JSON and in the preferences.
template<typename Enumeration>
struct RawValue
{
    Enumeration value;
    QLatin1StringView word;
};

/// The enumerators and their words in declaration order; specialised beside each enumeration.
template<typename Enumeration>
inline constexpr std::array<RawValue<Enumeration>, 0> rawValues{};

/// The word of an enumerator.
template<typename Enumeration>
constexpr QLatin1StringView rawValue(Enumeration value)
{
    for (const auto &entry : rawValues<Enumeration>) {
        if (entry.value == value)
            return entry.word;
    }
    return {};
}

/// The enumerator whose word is exactly `word`; none for any other text.
template<typename Enumeration>
std::optional<Enumeration> fromRawValue(QStringView word)
{
    for (const auto &entry : rawValues<Enumeration>) {
        if (word == entry.word)
            return entry.value;
    }
    return std::nullopt;
}

/// All enumerators in declaration order.
template<typename Enumeration>
constexpr auto allCases()
{
    std::array<Enumeration, rawValues<Enumeration>.size()> cases{};
    std::transform(rawValues<Enumeration>.begin(), rawValues<Enumeration>.end(), cases.begin(),
                   [](const auto &entry) { return entry.value; });
    return cases;
}

} // namespace pingwell
