#pragma once

#include "program/launch_options.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace pingwell {

/// What to print and be done, when the arguments ask for the version ("--version") or for help ("--help", "-h"); none
/// when the program is to start. Every other argument is somebody else's or none at all, and is passed over.
[[nodiscard]] std::optional<QString> terminalAnswer(const QStringList &arguments, const QString &version);

/// What to print when this start was handed to the running program although it asked for something which that one does
/// not do; none when it does all that was asked.
[[nodiscard]] std::optional<QString> handOverNote(const LaunchOptions &options);

} // namespace pingwell
