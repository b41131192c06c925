#pragma once

#include "program/launch_options.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace pingwell {

/// The text to print before ending, when the arguments ask for the version ("--version") or for help ("--help", "-h");
/// none when the program has to start. Every other argument is ignored: Qt or another function may use it.
[[nodiscard]] std::optional<QString> terminalAnswer(const QStringList &arguments, const QString &version);

/// The text to print when this start was handed over to the running program although it asked for something that a
/// running program does not do; none when the running program does all of it.
[[nodiscard]] std::optional<QString> handOverNote(const LaunchOptions &options);

} // namespace pingwell
