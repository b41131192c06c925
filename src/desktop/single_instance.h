#pragma once

#include <QByteArray>
#include <QObject>
#include <QUrl>

namespace pingwell {

/// Makes one running program serve every start. Main thread.
class SingleInstance : public QObject
{
    Q_OBJECT

public:
    enum class Role {
        /// This process is the program.
        primary,
        /// Another process is; it has been told what this start was for.
        handedOver,
    };

    using QObject::QObject;

    /// Claims the role of the program, or hands `urls` (or just the wish to be seen, where there are none) to the
    /// process that has it. Returns within a quarter of a second where another one has it, also when that one is busy.
    /// Needs no graphical application object.
    virtual Role claim(const QList<QUrl> &urls) = 0;
    /// Begins to pass on what later starts are for; nothing of it was lost since the claim. Needs the application
    /// object that runs the program.
    virtual void serve() {}

signals:
    /// The program was started again without a URL; `activationToken` lets the window come to the front.
    void activated(const QByteArray &activationToken);
    /// The program was started again to open `urls`.
    void opened(const QList<QUrl> &urls, const QByteArray &activationToken);
};

} // namespace pingwell
