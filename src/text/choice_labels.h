#pragma once

#include <QString>
#include <QStringList>

namespace pingwell {

/// How the answers that an ask offers read, in order and equally many: each whole, on one line, up to 64,000 units
/// together or 300 each. A person can tell any two of them apart: those that look the same carry their number, and one
/// of which nothing can be seen is called by it ("Choice 2").
[[nodiscard]] QStringList choiceLabels(const QStringList &actions);

} // namespace pingwell
