#pragma once

#include <QByteArray>
#include <QObject>
#include <QUrl>

namespace pingwell {

/// Makes the first process of the program serve every later start. Main thread.
class SingleInstance : public QObject
{
    Q_OBJECT

public:
    enum class Role {
        /// This process is the first one and runs the program.
        primary,
        /// Another process runs the program and has received what this start asks for.
        handedOver,
    };

    using QObject::QObject;

    /// Becomes the process that runs the program, or hands `urls` (or, without any, the request to show its window) to
    /// the process that already does. A hand-over returns within a quarter of a second, even when that process is busy.
    /// Needs no graphical application object.
    virtual Role claim(const QList<QUrl> &urls) = 0;
    /// Begins to emit the signals below, starting with what later starts sent since `claim`. Needs the application
    /// object that runs the program.
    virtual void serve() {}

signals:
    /// A later start had no URL; `activationToken` lets the window come to the front.
    void activated(const QByteArray &activationToken);
    /// A later start asked to open `urls`.
    void opened(const QList<QUrl> &urls, const QByteArray &activationToken);
};

} // namespace pingwell
