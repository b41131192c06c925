import QtQuick
import Pingwell

/** The content of the sheet that asks for notifications. */
Column {
    id: root

    required property NotificationAccess notifications
    readonly property bool denied: root.notifications.permission === "denied"

    /** Notifications came on, by the button or in the desktop's settings meanwhile. */
    signal turnedOn
    signal declined

    spacing: Theme.gap4
    Accessible.role: Accessible.Dialog
    Accessible.name: title.text
    Component.onCompleted: {
        root.notifications.refresh()
        if (enable.visible)
            enable.forceActiveFocus()
        else
            notNow.forceActiveFocus()
    }
    // The person may come back from the desktop's settings.
    Window.onActiveChanged: root.notifications.refresh()

    Connections {
        target: root.notifications

        function onPermissionChanged() {
            if (root.notifications.permission === "allowed")
                root.turnedOn()
        }
    }

    Symbol {
        anchors.horizontalCenter: parent.horizontalCenter
        name: root.denied ? "bell.slash.fill" : "bell.badge.fill"
        size: 64
        color: root.denied ? Theme.textTertiary : Theme.accent
    }

    Column {
        width: parent.width
        spacing: Theme.gap2

        PlainText {
            id: title

            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: "Turn on notifications"
            size: Theme.sizeScreenTitle
            font.weight: Font.DemiBold
            Accessible.role: Accessible.Heading
        }

        PlainText {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            lineHeight: 1.15
            text: "Pingwell tells you the moment an agent needs you. Approvals, questions and alerts show up as macOS "
                  + "notifications, and you can answer right from the banner."
            size: Theme.sizeTitle
            color: Theme.textSecondary
        }
    }

    Rectangle {
        width: parent.width
        height: warning.height + 2 * Theme.gap2
        visible: root.denied
        radius: Theme.radius
        color: Theme.warningFill

        SymbolLabel {
            id: warning

            objectName: "notificationPrompt.blocked"
            x: Theme.gap3
            y: Theme.gap2
            width: parent.width - 2 * Theme.gap3
            symbolName: "exclamationmark.triangle.fill"
            text: "Notifications are off for Pingwell. Turn on “Allow notifications” in System Settings, then come back."
            textSize: Theme.sizeBody
            color: Theme.timedOut
        }
    }

    Column {
        width: parent.width
        topPadding: Theme.gap1
        spacing: Theme.gap2

        PlainButton {
            id: enable

            objectName: "notificationPrompt.enable"
            width: parent.width
            implicitHeight: 36
            // Many desktops have no page that could be opened.
            visible: !root.denied || root.notifications.canOpenSettings
            label: root.denied ? "Open System Settings…" : "Enable notifications"
            prominent: true
            textSize: Theme.sizeTitle
            onClicked: root.denied ? root.notifications.openSettings() : root.notifications.request()
        }

        PlainButton {
            id: notNow

            objectName: "notificationPrompt.notNow"
            width: parent.width
            implicitHeight: 36
            label: "Not now"
            textSize: Theme.sizeTitle
            onClicked: root.declined()
        }
    }
}
