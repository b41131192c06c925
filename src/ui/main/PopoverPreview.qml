import QtQuick
import Pingwell

/** The panel alone in a window, to look at it and to drive it. */
Rectangle {
    id: root

    required property AppStore store

    signal openMainRequested
    signal quitRequested

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
