#pragma once

#include "model/enumerations.h"

#include <QString>

namespace pingwell {

/// The signed-in person.
struct Account
{
    QString name;
    QString email;
    AuthProvider provider = AuthProvider::google;
    /// The plan's name as it is shown.
    QString plan;

    friend bool operator==(const Account &, const Account &) = default;
};

} // namespace pingwell
