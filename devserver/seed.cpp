#include "service_state.h"

using namespace Qt::StringLiterals;

namespace pingwell::devserver {

namespace {

Member you(WorkspaceRole role)
{
    return {u"m-you"_s, u"Robin Vale"_s, u"robin@example.com"_s, role, MemberStatus::active, std::nullopt, true};
}

Member colleague(const QString &id, const QString &name, const QString &email, WorkspaceRole role)
{
    return {id, name, email, role, MemberStatus::active, std::nullopt, false};
}

Alert notice(const QString &id, const QString &title, const QString &body)
{
    Alert alert;
    alert.id = id;
    alert.workspaceId = u"w1"_s;
    alert.app = u"build-watch"_s;
    alert.title = title;
    alert.body = body;
    alert.topic = u"builds"_s;
    return alert;
}

Alert ask(const QString &id, const QString &title, const QString &body, const QStringList &actions)
{
    Alert alert = notice(id, title, body);
    alert.kind = AlertKind::ask;
    alert.app = u"release-agent"_s;
    alert.topic = u"releases"_s;
    alert.priority = Priority::high;
    alert.actions = actions;
    alert.answerType = actions.isEmpty() ? AnswerType::text : AnswerType::choice;
    return alert;
}

QList<ServedAlert> demoAlerts(Instant now)
{
    const auto ago = [now](double minutes) { return now - Seconds(minutes * 60); };

    Alert waiting = ask(u"a1"_s, u"Ship 3.2 to everyone?"_s, u"The canary ran two hours without an error."_s,
                        {u"Hold"_s, u"Ship"_s});
    waiting.at = ago(3);
    waiting.expiresAt = ago(-57);
    Alert wording = ask(u"a2"_s, u"How should the changelog name the new export?"_s, {}, {});
    wording.at = ago(9);
    wording.placeholder = u"e.g. Export as spreadsheet"_s;
    Alert watched =
        ask(u"a3"_s, u"Restart the ingest worker?"_s, u"Memory stands at 91 %."_s, {u"Wait"_s, u"Restart"_s});
    watched.workspaceId = u"w3"_s;
    watched.at = ago(12);
    Alert answered =
        ask(u"a4"_s, u"Merge the dependency updates?"_s, u"11 updates, all tests pass."_s, {u"Not now"_s, u"Merge"_s});
    answered.at = ago(50);
    answered.answer = u"Merge"_s;
    answered.read = true;
    Alert missed = ask(u"a5"_s, u"Keep last month's build logs?"_s, u"38 GB."_s, {u"Keep"_s, u"Delete"_s});
    missed.workspaceId = u"w2"_s;
    missed.at = ago(140);
    missed.expiresAt = ago(110);
    missed.timedOutAt = ago(110);
    missed.outcome = u"escalated"_s;
    Alert finished = notice(u"a6"_s, u"Nightly build finished"_s, u"1,204 tests in 6 minutes."_s);
    finished.at = ago(300);
    finished.read = true;

    return {{waiting, {}}, {wording, {}}, {watched, {}}, {answered, ago(45)}, {missed, {}}, {finished, {}}};
}

} // namespace

void ServiceState::startEmpty()
{
    account = {u"Robin Vale"_s, u"robin@example.com"_s, AuthProvider::google, u"Cloud"_s};
    workspaces = {{u"w1"_s, u"Personal"_s, WorkspaceKind::personal, WorkspaceRole::owner, 30, TimeoutAction::default_}};
    members = {{u"w1"_s, {you(WorkspaceRole::owner)}}};
    topics.clear();
    alerts.clear();
    devices.clear();
    invitations.clear();
    settings = {};
}

void ServiceState::startDemo(Instant now)
{
    startEmpty();
    workspaces.append(
        {u"w2"_s, u"Lighthouse"_s, WorkspaceKind::team, WorkspaceRole::admin, 15, TimeoutAction::escalate});
    workspaces.append({u"w3"_s, u"Harbour"_s, WorkspaceKind::team, WorkspaceRole::viewer, 60, TimeoutAction::expire});
    members[u"w2"_s] = {
        colleague(u"m-iris"_s, u"Iris Novak"_s, u"iris@example.com"_s, WorkspaceRole::owner),
        you(WorkspaceRole::admin),
        {u"m-lena"_s, std::nullopt, u"lena@example.com"_s, WorkspaceRole::member, MemberStatus::invited, now, false}};
    members[u"w3"_s] = {colleague(u"m-theo"_s, u"Theo Marsh"_s, u"theo@example.com"_s, WorkspaceRole::owner),
                        you(WorkspaceRole::viewer)};
    topics = {{u"t1"_s, u"w1"_s, u"builds"_s, Priority::normal, true, false, std::nullopt},
              {u"t2"_s, u"w1"_s, u"releases"_s, Priority::silent, false, false, std::nullopt},
              {u"t3"_s, u"w2"_s, u"releases"_s, Priority::silent, false, false, std::nullopt},
              {u"t4"_s, u"w3"_s, u"releases"_s, Priority::silent, false, false, std::nullopt}};
    alerts = demoAlerts(now);
    devices = {{u"d1"_s, u"Pixel 9"_s, DevicePlatform::android, u"1.8.2"_s, now}};
    invitations = {{u"invite-observatory"_s, u"Observatory"_s, WorkspaceRole::member, now - Seconds(7200)}};
}

} // namespace pingwell::devserver
