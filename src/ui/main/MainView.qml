import QtQuick
import Pingwell

/** The main screen: the sidebar, the list of alerts and the one that is open. */
Item {
    id: root

    required property AppStore store
    // Null where there are none.
    property NotificationAccess notifications: null
    property LoginItemAccess loginItem: null

    Component.onCompleted: root.notifications?.considerPrompt(root.store)

    Sidebar {
        id: sidebar

        width: 220
        height: root.height
        store: root.store
    }

    Divider {
        id: edge

        anchors.left: sidebar.right
        width: 1
        height: root.height
    }

    ConnectionBanner {
        id: banner

        anchors.left: edge.right
        anchors.right: parent.right
        store: root.store
    }

    InboxList {
        id: list

        anchors.left: edge.right
        anchors.top: banner.bottom
        anchors.bottom: parent.bottom
        width: 360
        store: root.store
    }

    Divider {
        id: middle

        anchors.left: list.right
        anchors.top: banner.bottom
        anchors.bottom: parent.bottom
        width: 1
    }

    AlertDetail {
        anchors.left: middle.right
        anchors.right: parent.right
        anchors.top: banner.bottom
        anchors.bottom: parent.bottom
        store: root.store
    }

    CreateWorkspaceSheet {
        store: root.store
    }

    NotificationPromptSheet {
        store: root.store
        notifications: root.notifications
    }
}
