pragma ComponentBehavior: Bound

import QtQuick
import Pingwell

/** What the main window shows: the sign-in, the first load, or the main screen; or the panel alone, to look at it. */
Rectangle {
    id: root

    required property AppStore store
    // Null where there are none.
    property NotificationAccess notifications: null
    property LoginItemAccess loginItem: null
    property bool popoverPreview: false
    /** Of the main screen, as the person wants it; 0 for as wide as it is at first. */
    property int sidebarWidth: 0
    readonly property string screen: root.popoverPreview ? "preview"
        : !root.store.isSignedIn ? "signIn"
        : !root.store.hasLoaded && !root.store.hasWorkspaces ? "loading" : "main"

    // From the panel's preview; elsewhere this window is already the main one.
    signal openMainRequested
    signal quitRequested

    implicitWidth: 1080
    implicitHeight: 680
    color: Theme.window

    When {
        condition: root.screen === "preview"
        delegate: PopoverPreview {
            anchors.fill: parent
            store: root.store
            onOpenMainRequested: root.openMainRequested()
            onQuitRequested: root.quitRequested()
        }
    }

    When {
        condition: root.screen === "signIn"
        delegate: SignInView {
            anchors.fill: parent
            store: root.store
        }
    }

    When {
        condition: root.screen === "loading"
        delegate: LoadingView {
            anchors.fill: parent
            store: root.store
        }
    }

    When {
        condition: root.screen === "main"
        delegate: MainView {
            anchors.fill: parent
            store: root.store
            notifications: root.notifications
            loginItem: root.loginItem
            sidebarWidth: root.sidebarWidth > 0 ? root.sidebarWidth : defaultSidebarWidth
            onSidebarWidthRequested: width => root.sidebarWidth = width
        }
    }

    Announcer {
        store: root.store
        Accessible.role: Accessible.Notification
        Accessible.name: message
    }

    ToastView {
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.top: parent.top
        anchors.topMargin: 10
        visible: shown && !root.popoverPreview
        store: root.store
        z: 1
    }
}
