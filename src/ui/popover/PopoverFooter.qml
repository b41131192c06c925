import QtQuick
import Pingwell

/** The panel's foot: to the main window, and out. */
Column {
    id: root

    signal openMainRequested
    signal quitRequested

    bottomPadding: Theme.gap1

    Divider {
        width: root.width
    }

    Item {
        width: 1
        height: Theme.gap1
    }

    PopoverFooterRow {
        objectName: "popover.open"
        width: root.width
        label: "Open Pingwell"
        hint: "⌘O"
        onClicked: root.openMainRequested()
    }

    PopoverFooterRow {
        objectName: "popover.quit"
        width: root.width
        label: "Quit Pingwell"
        hint: "⌘Q"
        onClicked: root.quitRequested()
    }
}
