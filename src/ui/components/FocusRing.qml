import QtQuick
import Pingwell

/** The ring around what has the keyboard's focus. */
Rectangle {
    id: root

    required property Item target
    property bool shown: false

    anchors.fill: root.target
    anchors.margins: -3
    visible: root.shown
    color: "transparent"
    radius: Theme.radius + 3
    border.width: 2
    border.color: Theme.focusRing
    Accessible.ignored: true
}
