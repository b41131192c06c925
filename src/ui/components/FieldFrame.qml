import QtQuick
import Pingwell

/** The ground of a text field. */
Rectangle {
    id: root

    property bool focused: false
    property bool hovered: false

    radius: Theme.radius
    color: Theme.field
    border.width: root.focused ? 2 : 1
    border.color: root.focused ? Theme.focusRing : root.hovered ? Theme.textTertiary : Theme.controlBorder
}
