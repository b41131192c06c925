pragma ComponentBehavior: Bound

import QtQuick
import Pingwell

/**
 * The panel: who is asking, what came today, whether the service is there. It fills what it is given and scrolls inside;
 * its implicit height is what it would like, up to a limit.
 */
Rectangle {
    id: root

    required property AppStore store
    readonly property int naturalHeight: header.height + footer.height
        + (root.store.isSignedIn ? workspaceMenu.height + Theme.gap2 + 1 + content.contentHeight : hint.height) + 2

    /** The person points at it or writes in it: it is to stay as it is on the screen. */
    readonly property bool isInUse: hold.isPointedAt || content.isHeld

    /** The person wants the main window, in front. */
    signal openMainRequested
    signal quitRequested

    objectName: "popover"
    implicitWidth: 340
    implicitHeight: Math.min(root.naturalHeight, 640)
    color: Theme.panel
    radius: Theme.radiusPanel
    border.width: 1
    border.color: Theme.controlBorder
    Accessible.role: Accessible.Pane
    Accessible.name: "Pingwell"

    Shortcut {
        sequence: "Ctrl+O"
        onActivated: root.openMainRequested()
    }

    Shortcut {
        sequence: "Ctrl+Q"
        onActivated: root.quitRequested()
    }

    PopoverHeader {
        id: header

        width: root.width
        store: root.store
    }

    WorkspaceMenu {
        id: workspaceMenu

        anchors.top: header.bottom
        x: Theme.gap3
        width: root.width - 2 * Theme.gap3
        visible: root.store.isSignedIn
        store: root.store
        idPrefix: "popover.workspace"
        compact: true
        onCreateRequested: root.openMainRequested()
    }

    PopoverContent {
        id: content

        objectName: "popover.scroll"
        anchors.top: workspaceMenu.bottom
        anchors.topMargin: Theme.gap2
        anchors.bottom: footer.top
        // The last buttons can be scrolled out from under a message.
        anchors.bottomMargin: toast.visible ? Math.max(0, root.height - footer.height - toast.y) : 0
        x: 1
        width: root.width - 2
        visible: root.store.isSignedIn
        store: root.store
        onAlertRequested: alertID => {
            root.store.revealAlert(alertID)
            root.openMainRequested()
        }
    }

    PlainText {
        id: hint

        objectName: "popover.signedOut"
        anchors.top: header.bottom
        width: root.width
        visible: !root.store.isSignedIn
        padding: 14
        text: "Sign in to start receiving alerts from your agents."
        color: Theme.textSecondary
        wrapMode: Text.Wrap
    }

    PopoverFooter {
        id: footer

        anchors.bottom: root.bottom
        anchors.bottomMargin: 1
        x: 1
        width: root.width - 2
        onOpenMainRequested: root.openMainRequested()
        onQuitRequested: root.quitRequested()
    }

    ListHold {
        id: hold

        area: root
        viewport: root
    }

    ToastView {
        id: toast

        anchors.horizontalCenter: root.horizontalCenter
        anchors.bottom: root.bottom
        anchors.bottomMargin: 70
        store: root.store
    }
}
