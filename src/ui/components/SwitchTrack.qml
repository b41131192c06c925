import QtQuick
import QtQuick.Templates as T
import Pingwell

/** The part of a switch that slides. */
Rectangle {
    id: root

    required property T.AbstractButton control
    required property bool on

    width: 28
    height: 16
    radius: 8
    color: root.on ? Theme.accentFill : Theme.switchOff

    Rectangle {
        x: root.on ? root.width - width - 2 : 2
        anchors.verticalCenter: parent.verticalCenter
        width: 12
        height: 12
        radius: 6
        color: Theme.switchKnob

        Behavior on x {
            NumberAnimation { duration: Theme.durationShort; easing.type: Easing.OutCubic }
        }
    }

    Rectangle {
        anchors.fill: parent
        visible: root.control.hovered || root.control.down
        radius: root.radius
        color: root.control.down ? Theme.pressed : Theme.hover
    }

    FocusRing {
        target: root
        radius: root.radius + 3
        shown: root.control.visualFocus
    }
}
