#include "linux/ui_test/ui_test_bridge.h"

#include "linux/ui_test/ui_test_adaptor.h"
#include "model/identity.h"

#include <QDBusConnection>

namespace pingwell {

using namespace Qt::StringLiterals;

namespace {

const QString name = uiTestID;
const QString path = u"/com/pingwell/uitest"_s;

} // namespace

UITestBridge::UITestBridge(std::function<QString()> snapshot, QObject *parent)
    : QObject(parent)
{
    new UITestAdaptor(std::move(snapshot), this);
}

UITestBridge::~UITestBridge()
{
    if (!m_serving)
        return;
    QDBusConnection bus = QDBusConnection::sessionBus();
    bus.unregisterService(name);
    bus.unregisterObject(path);
}

bool UITestBridge::serve()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    m_serving = bus.registerObject(path, this, QDBusConnection::ExportAdaptors) && bus.registerService(name);
    return m_serving;
}

} // namespace pingwell
