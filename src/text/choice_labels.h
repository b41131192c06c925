#pragma once

#include <QString>
#include <QStringList>

namespace pingwell {

/// The labels of an ask's choices, in order, one for each choice. Each is whole and on one line, up to 64,000 units for
/// all together or 300 each. No two labels look the same: choices that look the same get their number, and a choice
/// without a visible character is named after its number ("Choice 2").
[[nodiscard]] QStringList choiceLabels(const QStringList &actions);

} // namespace pingwell
