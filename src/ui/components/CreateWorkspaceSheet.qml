pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Pingwell

/** Asks for the name of a new team workspace. Open while the store says so. */
T.Popup {
    id: root

    required property AppStore store

    parent: T.Overlay.overlay
    anchors.centerIn: parent
    implicitWidth: 360
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    padding: Theme.gap5
    modal: true
    focus: true
    closePolicy: T.Popup.CloseOnEscape
    visible: root.store.isCreatingWorkspace
    onClosed: root.store.isCreatingWorkspace = false

    T.Overlay.modal: Rectangle {
        color: Theme.scrim
    }

    background: Rectangle {
        color: Theme.raised
        radius: Theme.radiusPanel
        border.width: 1
        border.color: Theme.controlBorder
    }

    contentItem: Item {
        implicitHeight: childrenRect.height

        // Made anew each time, so that it starts empty.
        When {
            condition: root.visible
            delegate: CreateWorkspaceForm {
                width: root.availableWidth
                onCancelled: root.close()
                onAccepted: name => {
                    root.store.createWorkspace(name)
                    root.close()
                }
            }
        }
    }
}
