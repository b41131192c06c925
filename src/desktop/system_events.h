#pragma once

#include <QObject>

namespace pingwell {

/// What happens to the computer that makes the program look at the service at once. Main thread.
class SystemEvents : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

signals:
    /// The computer woke from sleep.
    void wokeUp();
    /// There is a network again after there was none.
    void networkReturned();
};

} // namespace pingwell
