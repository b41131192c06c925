#pragma once

#include <QString>

namespace pingwell {

/// Writes one diagnostic line to standard output and flushes it: "[topic] line". Callers must not pass texts that a
/// person or a server wrote. Any thread.
void report(const char *topic, const QString &line);

} // namespace pingwell
