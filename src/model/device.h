#pragma once

#include "model/enumerations.h"
#include "model/instant.h"

#include <QString>

namespace pingwell {

/// A device on which the person has registered a client.
struct Device
{
    QString id;
    QString name;
    DevicePlatform platform = DevicePlatform::web;
    /// The client's version.
    QString version;
    Instant lastSeen = distantPast;

    friend bool operator==(const Device &, const Device &) = default;
};

} // namespace pingwell
