#pragma once

#include "model/alert.h"
#include "model/instant.h"
#include "model/member.h"
#include "model/topic.h"
#include "model/workspace.h"

#include <QList>
#include <QMap>
#include <QString>

/// The demo's day by subject; `demoData` assembles it.
namespace pingwell::demo {

/// A team that the person owns.
inline const QString studio = QStringLiteral("w1");
/// The person's own workspace.
inline const QString home = QStringLiteral("w2");
/// A team in which the person is a member.
inline const QString platformTeam = QStringLiteral("w3");
/// A team in which the person is a viewer.
inline const QString researchTeam = QStringLiteral("w4");

[[nodiscard]] QList<Alert> alerts(Instant now);
[[nodiscard]] QList<Workspace> workspaces();
[[nodiscard]] QMap<QString, QList<Member>> members(Instant now);
[[nodiscard]] QList<Topic> topics();

} // namespace pingwell::demo
