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

    /// Shows the main window, or brings it to the front. `activationToken` comes from the desktop with the person's
    /// request (XDG Activation); empty where there is none.
    virtual void showMain(const QByteArray &activationToken) = 0;
    /// Shows the panel, near `position` where the desktop lets programs place windows.
    virtual void showPanel(QPoint position) = 0;
    /// Handles a click on the status item: shows the panel, or hides it.
    virtual void togglePanel(QPoint position) = 0;

signals:
    void quitRequested();
};

} // namespace pingwell
