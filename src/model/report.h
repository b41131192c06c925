#pragma once

#include <QString>

namespace pingwell {

/// Writes one line of diagnosis to standard output, at once: "[topic] line". Nothing that a person or a server said
/// goes into it. Any thread.
void report(const char *topic, const QString &line);

} // namespace pingwell
