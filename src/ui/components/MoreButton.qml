import QtQuick
import Pingwell

/** A small button that leads to what else can be done with something. */
IconButton {
    id: root

    /** Its menu is open. */
    property bool open: false

    symbolName: "ellipsis.circle"
    showsHelp: root.hovered && !root.open
    color: root.open ? Theme.accent : Theme.textSecondary
    Accessible.role: Accessible.ButtonMenu
}
