#pragma once

#include "api/dashboard.h"
#include "api/outcome.h"

#include <QCoroTask>
#include <QString>

#include <functional>
#include <optional>
#include <type_traits>
#include <utility>

namespace pingwell {

/// What the service's consent to a change comes to.
struct Consent
{
    /// What it says to the person, if anything.
    std::optional<QString> sentence = std::nullopt;
    /// Brings what it answered into the store. Called only while the session lasts.
    std::function<void()> takeIn = [] {};
};

/// The sentence in the service's answer to a request that it granted.
template<typename Answer>
std::optional<QString> sentenceIn(const Answer &)
{
    return std::nullopt;
}

inline std::optional<QString> sentenceIn(const std::optional<QString> &message)
{
    return message;
}

template<typename Record>
std::optional<QString> sentenceIn(const WithMessage<Record> &answer)
{
    return answer.message;
}

/// Waits for the answer to a request. Without `takeIn` only its sentence counts: the next refresh brings the record as
/// the service holds it.
template<typename Answer>
QCoro::Task<Outcome<Consent>> consentOf(QCoro::Task<Outcome<Answer>> request,
                                        std::type_identity_t<std::function<void(const Answer &)>> takeIn = {})
{
    const Outcome<Answer> outcome = co_await std::move(request);
    if (outcome.error())
        co_return *outcome.error();
    Consent consent;
    consent.sentence = sentenceIn(*outcome.value());
    if (takeIn)
        consent.takeIn = [takeIn, answer = *outcome.value()] { takeIn(answer); };
    co_return consent;
}

} // namespace pingwell
