#pragma once

#include <QtGlobal>

namespace pingwell {

/// How many records of a list arrived, and how many of them the program left out.
struct ListCount
{
    qint64 sent = 0;
    /// Records that could not be decoded.
    qint64 unfit = 0;
    /// Records beyond the program's limit.
    qint64 beyond = 0;

    friend bool operator==(const ListCount &, const ListCount &) = default;
};

} // namespace pingwell
