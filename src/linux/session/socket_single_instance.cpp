#include "linux/session/socket_single_instance.h"

#include "linux/session/later_start.h"
#include "model/identity.h"
#include "model/report.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocalSocket>
#include <QTimer>

#include <chrono>
#include <cstring>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>

namespace pingwell {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

constexpr auto longestHandOver = 200ms;
// A process that has just taken the lock listens on the socket within this time.
constexpr auto pauseBetweenTries = 10ms;
constexpr int mostWaiting = 16;
// Far more than any start has to send.
constexpr qint64 longestMessage = 64 * 1024;
constexpr auto longestMessageTime = 5s;

const QString urlsKey = u"urls"_s;
const QString platformDataKey = u"platformData"_s;

QString lockIn(const QString &folder)
{
    return folder + u'/' + programID + u".lock"_s;
}

QString socketIn(const QString &folder)
{
    return folder + u'/' + programID + u".socket"_s;
}

/// Replaces the socket at `path` by a new one that later starts can write to at once; -1 on failure. A QLocalServer
/// would need the application object that runs the event loop, and there is none yet.
int listenAt(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (name.size() >= qsizetype(sizeof address.sun_path))
        return -1;
    std::memcpy(address.sun_path, name.constData(), size_t(name.size()));
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (socket < 0)
        return -1;
    ::unlink(name.constData());
    // Only the person may use the folder; the socket's own permissions say the same.
    const mode_t mask = ::umask(0177);
    const bool isBound = ::bind(socket, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0;
    ::umask(mask);
    if (isBound && ::listen(socket, mostWaiting) == 0)
        return socket;
    ::close(socket);
    return -1;
}

QByteArray messageOf(const QStringList &texts, const QVariantMap &platformData)
{
    const QJsonObject message{{urlsKey, QJsonArray::fromStringList(texts)},
                              {platformDataKey, QJsonObject::fromVariantMap(platformData)}};
    return QJsonDocument(message).toJson(QJsonDocument::Compact);
}

} // namespace

SocketSingleInstance::SocketSingleInstance(QString folder, QObject *parent)
    : SingleInstance(parent)
    , m_folder(std::move(folder))
    , m_platformData(platformDataOfThisStart())
{
    connect(&m_server, &QLocalServer::newConnection, this, &SocketSingleInstance::receive);
}

SocketSingleInstance::~SocketSingleInstance()
{
    if (m_listener < 0)
        return;
    // Removed while the lock is held, so that it can't be the socket of the next start.
    QFile::remove(socketIn(m_folder));
    if (!m_server.isListening())
        ::close(m_listener);
}

SingleInstance::Role SocketSingleInstance::claim(const QList<QUrl> &urls)
{
    if (m_lock || m_folder.isEmpty() || takePlace())
        return Role::primary;
    // The process that held the lock may have just ended, so the lock is tried again.
    return handOver(urls) || !takePlace() ? Role::handedOver : Role::primary;
}

bool SocketSingleInstance::takePlace()
{
    m_lock.emplace(lockIn(m_folder), 0ms);
    if (!m_lock->isHeld()) {
        m_lock.reset();
        return false;
    }
    m_listener = listenAt(socketIn(m_folder));
    if (m_listener < 0) {
        report("single instance", u"later starts can't reach this one: no socket in "_s + m_folder);
    }
    return true;
}

bool SocketSingleInstance::handOver(const QList<QUrl> &urls) const
{
    const QDeadlineTimer deadline(longestHandOver);
    QLocalSocket socket;
    socket.connectToServer(socketIn(m_folder));
    while (socket.state() != QLocalSocket::ConnectedState && !deadline.hasExpired()) {
        std::this_thread::sleep_for(pauseBetweenTries);
        socket.connectToServer(socketIn(m_folder));
    }
    if (socket.state() != QLocalSocket::ConnectedState)
        return false;
    socket.write(messageOf(acceptableTexts(urls), m_platformData));
    const bool isWritten = socket.bytesToWrite() == 0 || socket.waitForBytesWritten(int(deadline.remainingTime()));
    // There is no reply to wait for: a busy program reads the message later.
    socket.disconnectFromServer();
    return isWritten;
}

void SocketSingleInstance::serve()
{
    if (m_listener >= 0)
        m_server.listen(m_listener);
}

void SocketSingleInstance::receive()
{
    while (QLocalSocket *const peer = m_server.nextPendingConnection()) {
        peer->setReadBufferSize(longestMessage);
        // A peer that does not close its end in time is dropped, together with what it sent.
        QTimer::singleShot(longestMessageTime, peer, &QLocalSocket::abort);
        if (peer->state() == QLocalSocket::UnconnectedState)
            take(peer);
        else
            connect(peer, &QLocalSocket::disconnected, this, [this, peer] { take(peer); });
    }
}

void SocketSingleInstance::take(QLocalSocket *peer)
{
    const QJsonObject message = QJsonDocument::fromJson(peer->read(longestMessage)).object();
    peer->deleteLater();
    if (message.isEmpty())
        return;
    const QByteArray token = activationTokenOf(message.value(platformDataKey).toObject().toVariantMap());
    const QStringList texts = message.value(urlsKey).toVariant().toStringList();
    const QList<QUrl> urls = acceptableURLs(texts);
    if (texts.isEmpty())
        emit activated(token);
    else if (!urls.isEmpty())
        emit opened(urls, token);
}

} // namespace pingwell
