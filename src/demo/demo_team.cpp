#include "demo/demo_parts.h"

#include "store/seed_data.h"

namespace pingwell::demo {

namespace {

Member person(const QString &id, const QString &name, const QString &email, WorkspaceRole role)
{
    Member member;
    member.id = id;
    member.name = name;
    member.email = email;
    member.role = role;
    return member;
}

Member you(const QString &id, WorkspaceRole role)
{
    const Account account = demoAccount(AuthProvider::google);
    Member member = person(id, account.name, account.email, role);
    member.isYou = true;
    return member;
}

Member iris(const QString &id, WorkspaceRole role)
{
    return person(id, QStringLiteral("Iris Novak"), QStringLiteral("iris@novak.example"), role);
}

Member theo(const QString &id, WorkspaceRole role)
{
    return person(id, QStringLiteral("Theo Marsh"), QStringLiteral("theo@marsh.example"), role);
}

Member lena(const QString &id, WorkspaceRole role)
{
    return person(id, QStringLiteral("Lena Ortiz"), QStringLiteral("lena@ortiz.example"), role);
}

/// `member` as invited, before they have joined.
Member invited(Member member, Instant at)
{
    member.status = MemberStatus::invited;
    member.invitedAt = at;
    return member;
}

Topic topic(const char *id, const QString &workspace, const char *name, Priority minimum = Priority::normal)
{
    Topic topic;
    topic.id = QString::fromLatin1(id);
    topic.workspaceId = workspace;
    topic.name = QString::fromLatin1(name);
    topic.minPriority = minimum;
    return topic;
}

} // namespace

QList<Workspace> workspaces()
{
    return {
        {.id = studio,
         .name = QStringLiteral("Vale Studio"),
         .kind = WorkspaceKind::team,
         .role = WorkspaceRole::owner,
         .responseTimeoutMinutes = 30,
         .timeoutAction = TimeoutAction::escalate},
        {.id = home,
         .name = QStringLiteral("Personal"),
         .kind = WorkspaceKind::personal,
         .role = WorkspaceRole::owner,
         .responseTimeoutMinutes = 60,
         .timeoutAction = TimeoutAction::expire},
        {.id = platformTeam,
         .name = QStringLiteral("Harbor Platform"),
         .kind = WorkspaceKind::team,
         .role = WorkspaceRole::member,
         .responseTimeoutMinutes = 15,
         .timeoutAction = TimeoutAction::default_},
        {.id = researchTeam,
         .name = QStringLiteral("Atlas Research"),
         .kind = WorkspaceKind::team,
         .role = WorkspaceRole::viewer,
         .responseTimeoutMinutes = 60,
         .timeoutAction = TimeoutAction::expire},
    };
}

QMap<QString, QList<Member>> members(Instant now)
{
    const Instant dayBeforeYesterday = now - Seconds(172'800);
    return {
        {studio,
         {you(QStringLiteral("m1"), WorkspaceRole::owner), iris(QStringLiteral("m2"), WorkspaceRole::admin),
          theo(QStringLiteral("m3"), WorkspaceRole::member),
          invited(lena(QStringLiteral("m4"), WorkspaceRole::viewer), dayBeforeYesterday)}},
        {home, {you(QStringLiteral("m5"), WorkspaceRole::owner)}},
        {platformTeam,
         {theo(QStringLiteral("m6"), WorkspaceRole::owner), lena(QStringLiteral("m7"), WorkspaceRole::admin),
          you(QStringLiteral("m8"), WorkspaceRole::member)}},
        {researchTeam,
         {iris(QStringLiteral("m9"), WorkspaceRole::owner), lena(QStringLiteral("m10"), WorkspaceRole::member),
          you(QStringLiteral("m11"), WorkspaceRole::viewer)}},
    };
}

QList<Topic> topics()
{
    QList<Topic> topics{
        topic("t1", studio, "infra"),
        topic("t2", studio, "deploys", Priority::silent),
        topic("t3", studio, "on-call", Priority::high),
        topic("t4", studio, "research"),
        topic("t5", home, "infra", Priority::silent),
        topic("t6", platformTeam, "deploys"),
        topic("t7", platformTeam, "on-call"),
        topic("t8", researchTeam, "deploys"),
        topic("t9", researchTeam, "research"),
    };
    topics[2].responseTimeoutMinutes = 5;
    topics[3].quietHours = true;
    topics[6].muted = true;
    return topics;
}

} // namespace pingwell::demo
