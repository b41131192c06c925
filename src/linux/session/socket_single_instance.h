#pragma once

#include "desktop/single_instance.h"
#include "linux/preferences/file_lock.h"

#include <QLocalServer>
#include <QVariantMap>

#include <optional>

class QLocalSocket;

namespace pingwell {

/// One program for each runtime folder, where there is no session bus: the process that holds a lock there. It listens
/// on a socket beside the lock, and later starts write to the socket what they ask for. The lock ends with its process,
/// however that ends, so a socket that a killed process left behind is replaced. Construct it before any graphical
/// application object, which may remove the activation token from the environment.
class SocketSingleInstance final : public SingleInstance
{
    Q_OBJECT

public:
    /// `folder` belongs to the person alone. If it is empty, because there is no such folder, every start runs a
    /// program of its own.
    explicit SocketSingleInstance(QString folder, QObject *parent = nullptr);
    ~SocketSingleInstance() override;

    Role claim(const QList<QUrl> &urls) override;
    void serve() override;

private:
    [[nodiscard]] bool takePlace();
    [[nodiscard]] bool handOver(const QList<QUrl> &urls) const;
    void receive();
    void take(QLocalSocket *peer);

    QString m_folder;
    QVariantMap m_platformData;
    std::optional<FileLock> m_lock;
    int m_listener = -1;
    QLocalServer m_server;
};

} // namespace pingwell
