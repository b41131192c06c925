#pragma once

#include <QString>

namespace pingwell {

/// The message for the person that an answer was not accepted.
struct AnswerRefusal
{
    /// The reason, in whole sentences.
    QString reason;
    /// Whether the ask still waits and this person may answer it.
    bool canAnswerAgain = false;

    friend bool operator==(const AnswerRefusal &, const AnswerRefusal &) = default;
};

} // namespace pingwell
