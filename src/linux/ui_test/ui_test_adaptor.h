#pragma once

#include <QDBusAbstractAdaptor>

#include <functional>
#include <utility>

namespace pingwell {

/// The D-Bus interface of UITestBridge.
class UITestAdaptor final : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.pingwell.UITest1")

public:
    UITestAdaptor(std::function<QString()> snapshot, QObject *served)
        : QDBusAbstractAdaptor(served)
        , m_snapshot(std::move(snapshot))
    {
    }

public slots:
    QString Snapshot() const { return m_snapshot(); }

private:
    std::function<QString()> m_snapshot;
};

} // namespace pingwell
