pragma ComponentBehavior: Bound

import QtQuick
import Pingwell

/**
 * The screen of the section that is shown. The inbox stays once it was made, so that one comes back to the place where
 * one was; the others are made anew each time, and named by address: what they consist of is loaded when one of them is
 * first shown, not with the window.
 */
Item {
    id: root

    required property AppStore store
    // Null where there are none.
    property NotificationAccess notifications: null
    property LoginItemAccess loginItem: null
    property bool inboxWasShown: false
    readonly property InboxView inbox: inboxes.count > 0 ? inboxes.itemAt(0) as InboxView : null
    readonly property string section: root.store.section

    // What comes or goes above pushes no alert away from where it is read.
    property real lastY: 0

    onYChanged: {
        root.inbox?.shift(y - lastY)
        lastY = y
    }
    onSectionChanged: root.showSection()
    Component.onCompleted: root.showSection()

    function showSection() {
        if (root.section === "inbox") {
            root.inboxWasShown = true
            others.source = ""
        } else if (root.section === "topics") {
            others.setSource(Qt.resolvedUrl("TopicsView.qml"), {store: root.store})
        } else if (root.section === "team") {
            others.setSource(Qt.resolvedUrl("TeamView.qml"), {store: root.store})
        } else {
            others.setSource(Qt.resolvedUrl("SettingsView.qml"),
                             {store: root.store, notifications: root.notifications, loginItem: root.loginItem})
        }
    }

    When {
        id: inboxes

        condition: root.inboxWasShown
        delegate: InboxView {
            anchors.fill: parent
            visible: root.section === "inbox"
            store: root.store
        }
    }

    Loader {
        id: others

        anchors.fill: parent
    }
}
