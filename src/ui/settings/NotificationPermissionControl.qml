pragma ComponentBehavior: Bound

import QtQuick
import Pingwell

/** Says that notifications are allowed, or leads there. */
Row {
    id: root

    // Null where the program leaves the desktop alone.
    required property NotificationAccess notifications
    required property string permission
    // Many desktops have no page that could be opened.
    readonly property bool isStuck: root.permission === "denied" && !(root.notifications?.canOpenSettings ?? false)

    When {
        condition: root.permission === "allowed" || root.isStuck
        delegate: SymbolLabel {
            objectName: "settings.notificationPermission"
            symbolName: root.isStuck ? "bell.slash.fill" : "checkmark.circle.fill"
            text: root.isStuck ? "Not allowed" : "Allowed"
            textSize: Theme.sizeBody
            color: root.isStuck ? Theme.timedOut : Theme.answered
        }
    }

    When {
        condition: root.permission === "denied" && !root.isStuck
        delegate: PlainButton {
            objectName: "settings.notificationPermission"
            label: "Turn on in System Settings…"
            onClicked: root.notifications.openSettings()
        }
    }

    When {
        condition: root.permission === "notAsked" || root.permission === "unknown"
        delegate: PlainButton {
            objectName: "settings.notificationPermission"
            enabled: root.notifications !== null
            label: "Allow notifications"
            onClicked: root.notifications.request()
        }
    }
}
