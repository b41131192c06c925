import QtQuick
import Pingwell

/** A switch at the end of its words. It follows `on` and asks for a change; it never changes by itself. */
Pressable {
    id: root

    required property string label
    required property bool on
    property real textSize: Theme.sizeSmall
    property color color: Theme.textSecondary

    signal toggleRequested(bool on)

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: 20
    onClicked: {
        root.toggleRequested(!root.on)
        // A press moves what assistive technology is told, whether or not the request was heard.
        root.checked = Qt.binding(() => root.on)
    }
    // What makes it a check box to assistive technology: the control sets its own role.
    checkable: true
    checked: root.on
    Accessible.name: root.label
    Accessible.description: root.on ? "on" : "off"

    contentItem: ToggleSwitchLabel {
        control: root
        label: root.label
        on: root.on
        textSize: root.textSize
        color: root.color
    }
}
