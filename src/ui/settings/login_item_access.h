#pragma once

#include "desktop/login_item.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <memory>

namespace pingwell {

/// Whether the desktop starts this program at log-in, for the screens. What it says is read on `refresh`, never
/// remembered: the person may switch it in the desktop's own settings. Main thread.
class LoginItemAccess : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Handed in from outside, where the program may start at log-in.")
    Q_PROPERTY(bool isEnabled READ isEnabled NOTIFY statusChanged)
    /// The desktop waits for the person's consent, to be given in its settings.
    Q_PROPERTY(bool requiresApproval READ requiresApproval NOTIFY statusChanged)

public:
    explicit LoginItemAccess(std::shared_ptr<LoginItem> item, QObject *parent = nullptr);

    [[nodiscard]] bool isEnabled() const { return m_status == LoginItemStatus::enabled; }
    [[nodiscard]] bool requiresApproval() const { return m_status == LoginItemStatus::requiresApproval; }

    /// Asks the desktop.
    Q_INVOKABLE void refresh();
    /// Switches it; afterwards the state is what the desktop says, also when that failed.
    Q_INVOKABLE void setEnabled(bool enabled);
    /// Opens the place where the person consents; does nothing where there is none.
    Q_INVOKABLE void openSettings();

signals:
    void statusChanged();

private:
    std::shared_ptr<LoginItem> m_item;
    LoginItemStatus m_status = LoginItemStatus::notRegistered;
};

} // namespace pingwell
