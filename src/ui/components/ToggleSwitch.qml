import QtQuick
import QtQuick.Templates as T
import Pingwell

/** A switch with its words before it. It follows `on` and asks for a change; it never changes by itself. */
T.AbstractButton {
    id: root

    required property string label
    required property bool on
    property real textSize: Theme.sizeSmall

    signal toggleRequested(bool on)

    implicitWidth: implicitContentWidth
    implicitHeight: 20
    focusPolicy: Qt.TabFocus
    hoverEnabled: true
    opacity: enabled ? 1 : Theme.disabledOpacity
    onClicked: root.toggleRequested(!root.on)
    Keys.onReturnPressed: root.clicked()
    // What makes it a check box to assistive technology: the control sets its own role.
    checkable: true
    checked: root.on
    Accessible.name: root.label
    Accessible.description: root.on ? "on" : "off"

    contentItem: Row {
        spacing: Theme.gap2 - 2

        PlainText {
            anchors.verticalCenter: parent.verticalCenter
            text: root.label
            size: root.textSize
            color: Theme.textSecondary
            Accessible.ignored: true
        }

        SwitchTrack {
            anchors.verticalCenter: parent.verticalCenter
            control: root
            on: root.on
        }
    }
}
