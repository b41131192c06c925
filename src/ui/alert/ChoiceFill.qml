import QtQuick
import QtQuick.Templates as T
import Pingwell

/** The ground of one of several things to choose: shows which is chosen, pressed, under the pointer or the keyboard. */
Rectangle {
    id: root

    required property T.AbstractButton control
    required property bool selected
    property bool keyboardHere: root.control.visualFocus

    radius: Theme.radius
    color: root.control.down ? Theme.pressed : root.selected ? Theme.selection
         : root.control.hovered ? Theme.hover : "transparent"

    FocusRing {
        target: root
        anchors.margins: 0
        radius: root.radius
        shown: root.keyboardHere
    }
}
