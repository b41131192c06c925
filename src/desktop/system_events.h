#pragma once

#include <QObject>

namespace pingwell {

/// Events of the computer after which the program asks the service for news at once. Main thread.
class SystemEvents : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

signals:
    /// The computer woke up.
    void wokeUp();
    /// A network is available again after there was none.
    void networkReturned();
};

} // namespace pingwell
