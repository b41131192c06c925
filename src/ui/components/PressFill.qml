import QtQuick
import QtQuick.Templates as T
import Pingwell

/** The ground of a plain button: shows that the pointer is over it, that it is pressed, that it has the focus. */
Rectangle {
    id: root

    required property T.AbstractButton control
    property color restColor: "transparent"

    implicitWidth: 24
    implicitHeight: 24
    radius: Theme.radius
    color: root.control.down ? Theme.pressed : root.control.hovered ? Theme.hover : root.restColor

    FocusRing {
        target: root
        radius: root.radius + 3
        shown: root.control.visualFocus
    }
}
