#pragma once

#include <QByteArray>
#include <QList>

#include <functional>

namespace pingwell {

/// An answer of a service that wants to fill the memory or to stop the screens.
struct HostileBody
{
    const char *name;
    /// The dashboards that come one after the other; the last one is measured.
    QList<std::function<QByteArray()>> dashboards;
};

/// An ordinary one first, beside which the others are measured.
[[nodiscard]] QList<HostileBody> hostileBodies();

} // namespace pingwell
