#include "linux/session/bus_single_instance.h"

#include "linux/session/application_adaptor.h"
#include "linux/session/later_start.h"
#include "model/identity.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>

namespace pingwell {

using namespace Qt::StringLiterals;

namespace {

const QString programName = programID;
const QString liveTestName = liveUITestID;
const QString path = programBusPath;

// The call is sent at once; only a busy program takes this long to reply.
constexpr int longestWaitForAnswer = 200; // ms

/// What to do about another owner of the name, now or later.
enum class Manner { keepsIt, takesItFromATest, givesWay };

bool ownName(const QString &name, Manner manner)
{
    const auto wish = manner == Manner::takesItFromATest ? QDBusConnectionInterface::ReplaceExistingService
                                                         : QDBusConnectionInterface::DontQueueService;
    const auto permission = manner == Manner::givesWay ? QDBusConnectionInterface::AllowReplacement
                                                       : QDBusConnectionInterface::DontAllowReplacement;
    const auto reply = QDBusConnection::sessionBus().interface()->registerService(name, wish, permission);
    return reply.isValid() && reply.value() == QDBusConnectionInterface::ServiceRegistered;
}

} // namespace

BusSingleInstance::BusSingleInstance(Kind kind, QObject *parent)
    : SingleInstance(parent)
    , m_kind(kind)
    , m_platformData(platformDataOfThisStart())
{
    new ApplicationAdaptor(this);
}

BusSingleInstance::~BusSingleInstance()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (m_names.isEmpty() || !bus.isConnected())
        return;
    for (const QString &name : m_names)
        bus.unregisterService(name);
    bus.unregisterObject(path);
}

bool BusSingleInstance::isPossible()
{
    return QDBusConnection::sessionBus().isConnected();
}

SingleInstance::Role BusSingleInstance::claim(const QList<QUrl> &urls)
{
    if (!m_names.isEmpty())
        return Role::primary;
    QDBusConnection bus = QDBusConnection::sessionBus();
    // Qt delivers nothing on a new connection before the current application object processes events; `claim` runs
    // under a short-lived application object that never enters its loop.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    // Registered before the name is taken, so that whoever sees the name can call.
    bus.registerObject(path, this, QDBusConnection::ExportAdaptors);
    const QStringList texts = acceptableTexts(urls);
    bool isPrimary = false;
    if (m_kind == Kind::liveTest) {
        isPrimary = claimAsLiveTest(texts);
    } else {
        // Without a reply the name's owner may have just ended, so the name is requested again.
        const Manner manner = texts.isEmpty() ? Manner::takesItFromATest : Manner::keepsIt;
        isPrimary = ownName(programName, manner) || (!handOver(programName, texts) && ownName(programName, manner));
        if (isPrimary)
            m_names << programName;
    }
    if (!isPrimary)
        bus.unregisterObject(path);
    return isPrimary ? Role::primary : Role::handedOver;
}

bool BusSingleInstance::claimAsLiveTest(const QStringList &texts)
{
    const bool isFirst = ownName(liveTestName, Manner::keepsIt) ||
                         (!handOver(liveTestName, texts) && ownName(liveTestName, Manner::keepsIt));
    if (!isFirst)
        return false;
    m_names << liveTestName;
    if (ownName(programName, Manner::givesWay))
        m_names << programName;
    return true;
}

/// Sends what this start asks for to the owner of the name; true when the owner has replied.
bool BusSingleInstance::handOver(const QString &name, const QStringList &texts) const
{
    const bool opens = !texts.isEmpty();
    QDBusMessage call =
        QDBusMessage::createMethodCall(name, path, u"org.freedesktop.Application"_s, opens ? u"Open"_s : u"Activate"_s);
    if (opens)
        call << texts;
    call << m_platformData;
    call.setAutoStartService(false);
    const QDBusMessage answer = QDBusConnection::sessionBus().call(call, QDBus::Block, longestWaitForAnswer);
    return answer.type() == QDBusMessage::ReplyMessage;
}

} // namespace pingwell
