#pragma once

#include <QtGlobal>

namespace pingwell {

/// How many records of a list came, and how many of them the program left out.
struct ListCount
{
    qint64 sent = 0;
    /// Not understood.
    qint64 unfit = 0;
    /// More than the program takes in.
    qint64 beyond = 0;

    friend bool operator==(const ListCount &, const ListCount &) = default;
};

} // namespace pingwell
