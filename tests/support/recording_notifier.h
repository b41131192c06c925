#pragma once

#include "notify/alert_notifying.h"

#include <QStringList>

namespace pingwell {

/// Remembers what it was asked to show and to take back, a line each: "<id> in <workspace>, sounds", with
/// "only to be read" for an open ask that the person can't answer; and for a
/// refused answer "<id> in <workspace>: <reason>", with "Again?" where it can be answered again.
class RecordingNotifier final : public AlertNotifying
{
public:
    void deliver(const Alert &alert, const std::optional<QString> &workspaceName, bool sound, bool canAnswer) override
    {
        const bool onlyToRead = alert.kind == AlertKind::ask && !canAnswer;
        delivered << named(alert, workspaceName) + (sound ? QStringLiteral(", sounds") : QString()) +
                         (onlyToRead ? QStringLiteral(", only to be read") : QString());
    }

    void remove(const QStringList &identifiers) override { removed << identifiers; }
    void removeAll() override { ++removedAll; }

    void deliverRefusal(const Alert &alert, const std::optional<QString> &workspaceName,
                        const AnswerRefusal &refusal) override
    {
        refused << named(alert, workspaceName) + QStringLiteral(": ") + refusal.reason +
                       (refusal.canAnswerAgain ? QStringLiteral(" Again?") : QString());
    }

    void endAsks(const QStringList &alertIDs) override { ended << alertIDs; }

    QStringList leftBehind() const override { return left; }

    void deliverMessage(const QString &identifier, const QString &title, const QString &message) override
    {
        messages << identifier + QStringLiteral(": ") + title + QStringLiteral(" | ") + message;
    }

    QStringList delivered;
    QStringList removed;
    int removedAll = 0;
    QStringList refused;
    QStringList ended;
    QStringList left;
    /// "<identifier>: <title> | <message>".
    QStringList messages;

private:
    static QString named(const Alert &alert, const std::optional<QString> &workspaceName)
    {
        return workspaceName ? QString(alert.id + QStringLiteral(" in ") + *workspaceName) : alert.id;
    }
};

} // namespace pingwell
