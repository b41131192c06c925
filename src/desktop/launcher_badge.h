#pragma once

#include <QtGlobal>

namespace pingwell {

/// The number on the program's icon in the desktop's launcher.
class LauncherBadge
{
public:
    virtual ~LauncherBadge() = default;

    /// Shows `count`; 0 or less removes the badge. Does nothing where no launcher shows badges.
    virtual void setCount(qsizetype count) = 0;
};

} // namespace pingwell
