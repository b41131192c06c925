#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace pingwell {

/// What to print and be done, when the arguments ask for the version ("--version") or for help ("--help", "-h"); none
/// when the program is to start. Every other argument is somebody else's or none at all, and is passed over.
[[nodiscard]] std::optional<QString> terminalAnswer(const QStringList &arguments, const QString &version);

} // namespace pingwell
