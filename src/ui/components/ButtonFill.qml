import QtQuick
import QtQuick.Templates as T
import Pingwell

/** The ground of a button with words: filled with the accent when prominent, outlined otherwise. */
Rectangle {
    id: root

    required property T.AbstractButton control
    property bool prominent: false
    readonly property color accentShade: root.control.down ? Theme.accentFillPressed
                                         : root.control.hovered ? Theme.accentFillHover : Theme.accentFill

    radius: Theme.radius
    color: root.prominent ? root.accentShade : Theme.controlFill
    border.width: root.prominent ? 0 : 1
    border.color: Theme.controlBorder

    Rectangle {
        anchors.fill: parent
        visible: !root.prominent && (root.control.hovered || root.control.down)
        radius: root.radius
        color: root.control.down ? Theme.pressed : Theme.hover
    }

    FocusRing {
        target: root
        radius: root.radius + 3
        shown: root.control.visualFocus
    }
}
