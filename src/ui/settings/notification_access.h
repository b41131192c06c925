#pragma once

#include "notify/notification_permission.h"
#include "store/app_store.h"

#include <QCoroTask>
#include <QObject>
#include <QPointer>
#include <QtQml/qqmlregistration.h>

#include <memory>

namespace pingwell {

/// Whether the desktop shows this program's notifications, for the screens. The desktop is asked every time, and each
/// answer moves `permission`; nothing here waits for it. Main thread.
class NotificationAccess : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Handed in from outside, where there are notifications.")
    /// "unknown", "allowed", "notAsked" or "denied", as the desktop last said.
    Q_PROPERTY(QString permission READ permissionWord NOTIFY permissionChanged)
    /// Whether this desktop has a page where the person can change it.
    Q_PROPERTY(bool canOpenSettings READ canOpenSettings CONSTANT)

public:
    explicit NotificationAccess(std::shared_ptr<NotificationCenter> center, QObject *parent = nullptr);

    [[nodiscard]] NotificationPermission permission() const { return m_permission; }
    [[nodiscard]] bool canOpenSettings() const;

    /// Asks the desktop.
    Q_INVOKABLE void refresh();
    /// Asks the person, where the desktop has such a question.
    Q_INVOKABLE void request();
    /// Opens the desktop's page; does nothing where there is none.
    Q_INVOKABLE void openSettings();
    /// Asks the desktop and lets the store decide whether the person is to be told.
    Q_INVOKABLE void considerPrompt(pingwell::AppStore *store);

signals:
    void permissionChanged();

private:
    [[nodiscard]] QString permissionWord() const;
    void take(NotificationPermission permission);
    static QCoro::Task<> runRefresh(QPointer<NotificationAccess> access, std::shared_ptr<NotificationCenter> center,
                                    QPointer<AppStore> store);
    static QCoro::Task<> runRequest(QPointer<NotificationAccess> access, std::shared_ptr<NotificationCenter> center);

    std::shared_ptr<NotificationCenter> m_center;
    NotificationPermission m_permission = NotificationPermission::unknown;
};

} // namespace pingwell
