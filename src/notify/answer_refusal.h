#pragma once

#include <QString>

namespace pingwell {

/// That an answer was not accepted, as the person is told.
struct AnswerRefusal
{
    /// Why, in whole sentences.
    QString reason;
    /// The question still waits for an answer that this person may give.
    bool canAnswerAgain = false;

    friend bool operator==(const AnswerRefusal &, const AnswerRefusal &) = default;
};

} // namespace pingwell
