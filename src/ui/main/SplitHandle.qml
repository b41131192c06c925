import QtQuick
import Pingwell

/** The line between two areas, by which the one before it is made wider or narrower. */
Item {
    id: root

    required property string label
    /** How wide the area before it is. */
    required property int extent

    /** The person wants it that wide. */
    signal moved(extent: int)
    /** As at first. */
    signal resetRequested

    implicitWidth: 1
    activeFocusOnTab: true
    Keys.onLeftPressed: root.moved(root.extent - 10)
    Keys.onRightPressed: root.moved(root.extent + 10)
    Accessible.role: Accessible.Splitter
    Accessible.name: root.label
    Accessible.description: root.extent.toString()
    Accessible.focusable: true

    Rectangle {
        x: Math.round((root.width - width) / 2)
        width: root.activeFocus || area.pressed ? 3 : 1
        height: root.height
        color: root.activeFocus ? Theme.focusRing : area.pressed ? Theme.accent : Theme.separator
    }

    MouseArea {
        id: area

        property real grip: 0

        x: -4
        width: root.width + 8
        height: root.height
        cursorShape: Qt.SplitHCursor
        preventStealing: true
        onPressed: mouse => area.grip = mouse.x
        onPositionChanged: mouse => root.moved(Math.round(root.extent + mouse.x - area.grip))
        onDoubleClicked: root.resetRequested()
    }
}
