import QtQuick
import Pingwell

/** What this computer's desktop lets the program do. It is asked whenever the person may have changed it there. */
FormSection {
    id: root

    // Null where the program leaves the desktop alone.
    required property NotificationAccess notifications
    required property LoginItemAccess loginItem
    readonly property string permission: root.notifications?.permission ?? "unknown"
    readonly property bool denied: root.permission === "denied"

    function refresh() {
        root.notifications?.refresh()
        root.loginItem?.refresh()
    }

    title: "This Mac"
    footer: root.denied
            ? "macOS is blocking Pingwell's notifications, so agents can't reach you on this Mac."
            : "Alerts arrive as macOS notifications while Pingwell is running in the menu bar."
    footerColor: root.denied ? Theme.timedOut : Theme.textSecondary
    footerIdentifier: "settings.thisMac.footer"
    onVisibleChanged: if (visible) root.refresh()
    Component.onCompleted: root.refresh()
    Window.onActiveChanged: if (Window.active) root.refresh()

    FormRow {
        label: "Notifications"

        NotificationPermissionControl {
            notifications: root.notifications
            permission: root.permission
        }
    }

    FormToggle {
        objectName: "settings.openAtLogin"
        label: "Open Pingwell at login"
        enabled: root.loginItem !== null
        on: root.loginItem?.isEnabled ?? false
        onToggleRequested: on => root.loginItem.setEnabled(on)
    }

    FormRow {
        visible: root.loginItem?.requiresApproval ?? false
        label: "Waiting for your approval"

        PlainButton {
            objectName: "settings.loginItem.allow"
            label: "Allow in Login Items…"
            onClicked: root.loginItem.openSettings()
        }
    }
}
