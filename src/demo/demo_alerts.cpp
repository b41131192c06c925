#include "demo/demo_parts.h"

#include <utility>

namespace pingwell::demo {

namespace {

const QString claudeCode = QStringLiteral("Claude Code");
const QString codex = QStringLiteral("Codex");
const QString cursor = QStringLiteral("Cursor");
const QString onCallBot = QStringLiteral("on-call-bot");

const QString deploys = QStringLiteral("deploys");
const QString infra = QStringLiteral("infra");
const QString onCall = QStringLiteral("on-call");
const QString research = QStringLiteral("research");

/// The agent that posts an alert, and the workspace and topic it posts to.
struct Route
{
    QString workspaceId;
    QString app;
    QString topic;
};

Alert notice(const char *id, Instant at, const Route &route, const QString &title, const QString &body,
             Priority priority = Priority::normal)
{
    Alert alert;
    alert.id = QString::fromLatin1(id);
    alert.workspaceId = route.workspaceId;
    alert.app = route.app;
    alert.topic = route.topic;
    alert.title = title;
    alert.body = body;
    alert.priority = priority;
    alert.at = at;
    return alert;
}

/// The notice as an ask with `actions` as its choices, or answered by text where there are none.
Alert asking(Alert alert, const QStringList &actions)
{
    alert.kind = AlertKind::ask;
    alert.answerType = actions.isEmpty() ? AnswerType::text : AnswerType::choice;
    alert.actions = actions;
    return alert;
}

Alert read(Alert alert)
{
    alert.read = true;
    return alert;
}

Alert answered(Alert ask, const QString &answer)
{
    ask.answer = answer;
    return read(std::move(ask));
}

Alert due(Alert ask, Instant deadline)
{
    ask.expiresAt = deadline;
    return ask;
}

Alert escalated(Alert ask)
{
    ask.timedOutAt = ask.expiresAt;
    ask.outcome = QStringLiteral("escalated");
    return ask;
}

QList<Alert> earlyAlerts(Instant now)
{
    return {
        asking(notice("a1", now - Seconds(120), {studio, claudeCode, infra}, QStringLiteral("Delete 3 S3 buckets?"),
                      QStringLiteral("staging-logs-old, tmp-uploads, legacy-assets — no reads in 90 days."),
                      Priority::high),
               {QStringLiteral("Keep them"), QStringLiteral("Delete all 3")}),
        answered(asking(notice("a2", now - Seconds(2280), {studio, claudeCode, deploys},
                               QStringLiteral("Run migration 0043?"),
                               QStringLiteral("Adds an index on events(user_id, created_at). "
                                              "~40s lock on a 2M row table.")),
                        {QStringLiteral("Not now"), QStringLiteral("Run tonight"), QStringLiteral("Run it")}),
                 QStringLiteral("Run tonight")),
        notice("a3", now - Seconds(720), {studio, cursor, deploys}, QStringLiteral("Billing refactor done"),
               QStringLiteral("482 tests passed · 3 files changed. PR #318 is ready for review.")),
        notice("a4", now - Seconds(3720), {studio, QStringLiteral("research-agent"), research},
               QStringLiteral("Eval regression −6.2%"),
               QStringLiteral("tool-use/json fell from 0.94 to 0.88 after commit a1f3c."), Priority::high),
        read(notice("a5", now - Seconds(8400), {studio, claudeCode, deploys}, QStringLiteral("Migration 0042 applied"),
                    QStringLiteral("users table: 18,204 rows backfilled."), Priority::silent)),
        notice("a6", now - Seconds(360), {studio, onCallBot, onCall}, QStringLiteral("API p95 above 800ms"),
               QStringLiteral("eu-west-1 · started 4 min ago · auto-scaling in progress."), Priority::critical),
        read(notice("a7", now - Seconds(11'400), {home, QStringLiteral("home-lab"), infra},
                    QStringLiteral("Backup finished"), QStringLiteral("nas-01 · 412 GB · 0 errors"), Priority::silent)),
        read(asking(notice("a8", now - Seconds(93'600), {platformTeam, codex, deploys},
                           QStringLiteral("Keep the old /v1 endpoints?"),
                           QStringLiteral("Three clients still call /v1/users in the last 7 days.")),
                    {QStringLiteral("Keep them"), QStringLiteral("Remove them")})),
    };
}

Alert releaseNotesQuestion(Instant now)
{
    Alert alert = asking(notice("b5", now - Seconds(540), {studio, cursor, deploys},
                                QStringLiteral("Where should the 2.4 release notes go?"),
                                QStringLiteral("The notes for release/2.4 are drafted. "
                                               "Tell me which Slack channel to post them in.")),
                         {});
    alert.placeholder = QStringLiteral("e.g. #eng-releases");
    return alert;
}

QList<Alert> lateAlerts(Instant now)
{
    return {
        asking(notice("b1", now - Seconds(1200), {researchTeam, codex, deploys},
                      QStringLiteral("Force-push to release/2.4?"),
                      QStringLiteral("Rewrites 3 commits already on origin. "
                                     "2 teammates have the branch checked out."),
                      Priority::high),
               {QStringLiteral("Don't push"), QStringLiteral("Force-push")}),
        escalated(due(asking(notice("b2", now - Seconds(1860), {studio, claudeCode, infra},
                                    QStringLiteral("Rotate the Stripe webhook secret?"),
                                    QStringLiteral("The old secret keeps working for 24h. "
                                                   "2 services read it from Vault."),
                                    Priority::high),
                             {QStringLiteral("Leave it"), QStringLiteral("Rotate")}),
                      now - Seconds(60))),
        due(asking(notice("b3", now - Seconds(240), {studio, onCallBot, onCall},
                          QStringLiteral("Fail over the primary database?"),
                          QStringLiteral("db-primary-1 replication lag is 48s and climbing."), Priority::critical),
                   {QStringLiteral("Hold"), QStringLiteral("Fail over")}),
            now + Seconds(60)),
        read(notice("b4", now - Seconds(172'800), {platformTeam, codex, deploys},
                    QStringLiteral("Staging deploy finished"),
                    QStringLiteral("Revision 7c41e9d is live on staging · 12 services healthy."))),
        releaseNotesQuestion(now),
    };
}

} // namespace

QList<Alert> alerts(Instant now)
{
    return earlyAlerts(now) + lateAlerts(now);
}

} // namespace pingwell::demo
