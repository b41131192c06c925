pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Pingwell

/** The alerts of the active workspace, newest first. */
Item {
    id: root

    required property AppStore store

    AlertListModel {
        id: alerts

        store: root.store
        list: AlertListModel.Inbox
    }

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
        anchors.baseline: title.baseline
        text: alerts.total + " alerts · " + root.store.unreadCount + " unread"
        color: Theme.textSecondary
    }

    Divider {
        id: line

        anchors.top: title.bottom
        anchors.topMargin: 10
        width: root.width
    }

    ListView {
        objectName: "inbox.list"
        anchors.top: line.bottom
        anchors.bottom: root.bottom
        width: root.width
        topMargin: Theme.gap1
        bottomMargin: Theme.gap1
        clip: true
        // The default, 0, would take the keyboard's focus from a reply when a row arrives.
        currentIndex: -1
        reuseItems: true
        boundsBehavior: Flickable.StopAtBounds
        model: alerts
        Accessible.role: Accessible.List
        Accessible.name: "Inbox"
        T.ScrollBar.vertical: SlimScrollBar {}

        delegate: InboxRow {
            width: root.width
            now: root.store.now
            selected: root.store.selectedAlertID === alert.id
            onClicked: root.store.selectedAlertID = alert.id
        }
    }

    PlainText {
        objectName: "inbox.empty"
        anchors.top: line.bottom
        anchors.topMargin: Theme.gap10
        width: root.width
        horizontalAlignment: Text.AlignHCenter
        visible: alerts.total === 0
        text: "No alerts here."
        color: Theme.textSecondary
    }
}
