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

/// The most choices of one ask that are kept.
inline constexpr qsizetype maximumKeptChoices = 100;

/// One alert posted by an agent: a notice, or a question that waits for the person's answer.
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
    /// The choices an ask offers, at most `maximumKeptChoices`; empty for notices and for asks answered by text.
    QStringList actions;
    /// How many choices it offers beyond those.
    qsizetype furtherChoices = 0;
    AnswerType answerType = AnswerType::choice;
    std::optional<QString> placeholder;
    std::optional<QString> answer;
    Instant at{};
    bool read = false;
    /// The deadline for an answer; none when the ask waits for ever.
    std::optional<Instant> expiresAt;
    bool delivered = true;
    std::optional<Instant> timedOutAt;
    /// What the service did at the time-out: "expired", "default", "escalated", or another word kept as it came.
    std::optional<QString> outcome;

    friend bool operator==(const Alert &, const Alert &) = default;

    [[nodiscard]] bool acceptsText() const { return kind == AlertKind::ask && answerType == AnswerType::text; }

    /// None for a notice. An answer wins over any time-out.
    [[nodiscard]] std::optional<ReplyState> replyState(Instant now) const;

    /// Whether the alert is an ask that can still be answered at `now`.
    [[nodiscard]] bool isWaiting(Instant now) const;

    /// The answer as it is sent: trimmed text of 1 to `maximumAnswerLength` units, or one of the actions exactly; none
    /// for anything else.
    [[nodiscard]] std::optional<QString> validatedAnswer(const QString &proposed) const;

    /// Minutes between posting and deadline, rounded half away from zero; none without a deadline.
    [[nodiscard]] std::optional<std::int64_t> responseWindowMinutes() const;
};

} // namespace pingwell
