import QtQuick
import Pingwell

/** The title of the inbox, how much is in it, and what can be done with all of it. */
Item {
    id: root

    required property AppStore store
    required property int total
    required property bool canSendTestAlert

    implicitHeight: title.y + title.height + 10

    PlainText {
        id: title

        x: Theme.gap5
        y: Theme.gap4
        text: "Inbox"
        size: Theme.sizeScreenTitle
        font.weight: Font.DemiBold
        Accessible.role: Accessible.Heading
    }

    PlainText {
        objectName: "inbox.count"
        anchors.left: title.right
        anchors.leftMargin: Theme.gap2
        anchors.right: testAlert.left
        anchors.rightMargin: Theme.gap1
        anchors.baseline: title.baseline
        text: root.total + " alerts · " + root.store.unreadCount + " unread"
        color: Theme.textSecondary
    }

    IconButton {
        id: testAlert

        objectName: "inbox.testAlert"
        anchors.right: markAllRead.left
        anchors.rightMargin: Theme.gap2
        anchors.verticalCenter: markAllRead.verticalCenter
        enabled: root.canSendTestAlert
        label: "Send test alert"
        symbolName: "paperplane"
        help: "Sends an alert to this workspace so you can check notifications work."
        onClicked: root.store.sendTestAlert()
    }

    LinkButton {
        id: markAllRead

        objectName: "inbox.markAllRead"
        anchors.right: parent.right
        anchors.rightMargin: Theme.gap5
        anchors.baseline: title.baseline
        enabled: root.store.unreadCount > 0
        label: "Mark all read"
        textSize: Theme.sizeNote
        onClicked: root.store.markAllRead()
    }
}
