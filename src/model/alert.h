#pragma once

#include "model/enumerations.h"
#include "model/instant.h"
#include "model/reply_state.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>

namespace pingwell {

/// The longest answer and the longest reply draft, in UTF-16 code units.
inline constexpr qsizetype maximumAnswerLength = 1000;

/// The largest number of an ask's choices that are kept.
inline constexpr qsizetype maximumKeptChoices = 100;

/// One alert that an agent posted: a notice, or an ask, which waits for the person's answer.
struct Alert
{
    QString id;
    QString workspaceId;
    QString app;
    QString title;
    QString body;
    QString topic;
    Priority priority = Priority::normal;
    AlertKind kind = AlertKind::notify;
    /// The choices of an ask, at most `maximumKeptChoices`; empty for notices and for asks answered by text.
    QStringList actions;
    /// How many more choices the ask has.
    qsizetype furtherChoices = 0;
    AnswerType answerType = AnswerType::choice;
    std::optional<QString> placeholder;
    std::optional<QString> answer;
    Instant at{};
    bool read = false;
    /// The deadline for an answer; none when the ask has none.
    std::optional<Instant> expiresAt;
    bool delivered = true;
    std::optional<Instant> timedOutAt;
    /// What the service did at the time-out: "expired", "default", "escalated", or another word, stored unchanged.
    std::optional<QString> outcome;

    friend bool operator==(const Alert &, const Alert &) = default;

    [[nodiscard]] bool acceptsText() const { return kind == AlertKind::ask && answerType == AnswerType::text; }

    /// None for a notice. An ask with both an answer and a time-out counts as answered.
    [[nodiscard]] std::optional<ReplyState> replyState(Instant now) const;

    /// Whether the alert is an ask that can still be answered at `now`.
    [[nodiscard]] bool isWaiting(Instant now) const;

    /// The answer as it is sent to the service: trimmed text of 1 to `maximumAnswerLength` units, or exactly one of the
    /// actions; none for any other text.
    [[nodiscard]] std::optional<QString> validatedAnswer(const QString &proposed) const;

    /// Minutes between posting and deadline, rounded half away from zero; none without a deadline.
    [[nodiscard]] std::optional<std::int64_t> responseWindowMinutes() const;
};

} // namespace pingwell
