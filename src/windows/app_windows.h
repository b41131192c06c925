#pragma once

#include <QByteArray>
#include <QObject>
#include <QPoint>

namespace pingwell {

/// The program's two windows. Main thread.
class AppWindows : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Shows the main window, or brings it forward. `activationToken` is what the desktop gave for that wish (XDG
    /// Activation); empty where there is none.
    virtual void showMain(const QByteArray &activationToken) = 0;
    /// Shows the panel, near `position` where the desktop lets a program choose.
    virtual void showPanel(QPoint position) = 0;
    /// The status item was clicked: shows the panel, or hides it.
    virtual void togglePanel(QPoint position) = 0;

signals:
    void quitRequested();
};

} // namespace pingwell
