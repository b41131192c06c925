pragma ComponentBehavior: Bound

import QtQuick
import Pingwell

/** What the main window shows: the sign-in, the first load, or the main screen; or the panel alone, to look at it. */
Rectangle {
    id: root

    required property AppStore store
    property bool popoverPreview: false

    // From the panel's preview; elsewhere this window is already the main one.
    signal openMainRequested
    signal quitRequested

    implicitWidth: 1080
    implicitHeight: 680
    color: Theme.window

    Loader {
        anchors.fill: parent
        sourceComponent: root.popoverPreview ? preview
            : !root.store.isSignedIn ? signIn
            : !root.store.hasLoaded && !root.store.hasWorkspaces ? loading : main
    }

    ToastView {
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.top: parent.top
        anchors.topMargin: 10
        visible: shown && !root.popoverPreview
        store: root.store
    }

    Component {
        id: preview

        Rectangle {
            objectName: "popover.preview"
            color: Theme.sidebar
            Accessible.role: Accessible.Pane
            Accessible.name: "Panel"

            PopoverView {
                anchors.centerIn: parent
                height: Math.min(640, parent.height - 2 * Theme.gap3)
                store: root.store
                onOpenMainRequested: root.openMainRequested()
                onQuitRequested: root.quitRequested()
            }
        }
    }

    Component {
        id: signIn

        SignInView {
            store: root.store
        }
    }

    Component {
        id: loading

        LoadingView {
            store: root.store
        }
    }

    Component {
        id: main

        MainView {
            store: root.store
        }
    }
}
