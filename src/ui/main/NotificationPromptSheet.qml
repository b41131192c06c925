pragma ComponentBehavior: Bound

import QtQuick
import Pingwell

/** Explains once what notifications are for, where they are not on. Open while the store says so. */
Sheet {
    id: root

    required property AppStore store
    // Null where there are none; then there is nothing to explain either.
    required property NotificationAccess notifications

    implicitWidth: 400
    wanted: root.notifications !== null && root.store.showsNotificationPrompt
    // Not when the session's end closed it: the next account is to be asked again.
    onClosed: if (root.store.showsNotificationPrompt) root.store.dismissNotificationPrompt()

    content: NotificationPrompt {
        width: root.availableWidth
        notifications: root.notifications
        onDeclined: root.store.dismissNotificationPrompt()
        onTurnedOn: {
            root.store.dismissNotificationPrompt()
            root.store.showToast("Notifications are on.", false)
        }
    }
}
