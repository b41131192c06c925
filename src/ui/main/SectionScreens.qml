pragma ComponentBehavior: Bound

import QtQuick
import Pingwell

/**
 * The screen of the section that is shown. The inbox stays once it was made, so that one comes back to the place where
 * one was; the others are made anew each time.
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
    onSectionChanged: root.noteInbox()
    Component.onCompleted: root.noteInbox()

    function noteInbox() {
        if (root.section === "inbox")
            root.inboxWasShown = true
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

    When {
        condition: root.section === "topics"
        delegate: TopicsView {
            anchors.fill: parent
            store: root.store
        }
    }

    When {
        condition: root.section === "team"
        delegate: TeamView {
            anchors.fill: parent
            store: root.store
        }
    }

    When {
        condition: root.section === "settings"
        delegate: SettingsView {
            anchors.fill: parent
            store: root.store
            notifications: root.notifications
            loginItem: root.loginItem
        }
    }
}
