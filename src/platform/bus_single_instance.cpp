#include "platform/bus_single_instance.h"

#include "platform/application_adaptor.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>

namespace pingwell {

using namespace Qt::StringLiterals;

namespace {

const QString name = u"com.pingwell.mac"_s;
const QString path = u"/com/pingwell/mac"_s;

// The call itself is on its way at once; only a busy program lets it wait for its answer.
constexpr int longestWaitForAnswer = 200; // ms

} // namespace

BusSingleInstance::BusSingleInstance(QObject *parent)
    : SingleInstance(parent)
    , m_activationToken(qgetenv("XDG_ACTIVATION_TOKEN"))
    , m_startupId(qgetenv("DESKTOP_STARTUP_ID"))
{
    new ApplicationAdaptor(this);
}

BusSingleInstance::~BusSingleInstance()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (m_primary && bus.isConnected()) {
        bus.unregisterService(name);
        bus.unregisterObject(path);
    }
}

SingleInstance::Role BusSingleInstance::claim(const QList<QUrl> &urls)
{
    m_primary = m_primary || ownName();
    // No answer may mean that the program which had the name has just ended.
    if (!m_primary && !handOver(urls))
        m_primary = ownName();
    return m_primary ? Role::primary : Role::handedOver;
}

/// Takes the name if it is free; without a session bus there is nobody to share it with.
bool BusSingleInstance::ownName()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return true;
    // Qt holds calls back until the application object at hand processes events, which a short-lived one never would.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    // Before the name, so that whoever sees the name can call.
    bus.registerObject(path, this, QDBusConnection::ExportAdaptors);
    if (bus.registerService(name))
        return true;
    bus.unregisterObject(path);
    return false;
}

/// Tells the program that has the name what this start is for; true when it has answered.
bool BusSingleInstance::handOver(const QList<QUrl> &urls) const
{
    const QStringList texts = acceptableTexts(urls);
    const bool opens = !texts.isEmpty();
    QDBusMessage call =
        QDBusMessage::createMethodCall(name, path, u"org.freedesktop.Application"_s, opens ? u"Open"_s : u"Activate"_s);
    if (opens)
        call << texts;
    QVariantMap platformData;
    if (!m_activationToken.isEmpty())
        platformData.insert(u"activation-token"_s, QString::fromUtf8(m_activationToken));
    if (!m_startupId.isEmpty())
        platformData.insert(u"desktop-startup-id"_s, QString::fromUtf8(m_startupId));
    call << platformData;
    call.setAutoStartService(false);
    const QDBusMessage answer = QDBusConnection::sessionBus().call(call, QDBus::Block, longestWaitForAnswer);
    return answer.type() == QDBusMessage::ReplyMessage;
}

} // namespace pingwell
