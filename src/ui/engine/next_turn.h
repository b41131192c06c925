#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace pingwell {

/// Puts something off until what has been asked for before is done: `came` follows one or more `schedule`s once, on the
/// next turn of the event loop.
class NextTurn : public QObject
{
    Q_OBJECT
    QML_ELEMENT

public:
    using QObject::QObject;

    Q_INVOKABLE void schedule()
    {
        if (!m_isScheduled)
            QMetaObject::invokeMethod(this, &NextTurn::arrive, Qt::QueuedConnection);
        m_isScheduled = true;
    }

signals:
    void came();

private:
    void arrive()
    {
        m_isScheduled = false;
        emit came();
    }

    bool m_isScheduled = false;
};

} // namespace pingwell
