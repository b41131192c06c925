import QtQuick
import Pingwell

/** One row of a form: its label, and its value or control at the other end. */
Item {
    id: root

    default property alias control: control.data
    required property string label
    property string value

    implicitHeight: 40
    width: parent?.width ?? implicitWidth
    // A control says its own label.
    Accessible.ignored: root.value.length === 0
    Accessible.role: Accessible.StaticText
    Accessible.name: root.label
    Accessible.description: root.value

    FormDivider {}

    PlainText {
        id: words

        x: Theme.gap4
        width: Math.min(implicitWidth, root.width / 2 - x)
        anchors.verticalCenter: parent.verticalCenter
        text: root.label
        Accessible.ignored: true
    }

    PlainText {
        anchors.left: words.right
        anchors.leftMargin: Theme.gap4
        anchors.right: parent.right
        anchors.rightMargin: Theme.gap4
        anchors.verticalCenter: parent.verticalCenter
        horizontalAlignment: Text.AlignRight
        visible: root.value.length > 0
        text: root.value
        color: Theme.textSecondary
        Accessible.ignored: true
    }

    Item {
        id: control

        anchors.right: parent.right
        anchors.rightMargin: Theme.gap3
        anchors.verticalCenter: parent.verticalCenter
        width: childrenRect.width
        height: childrenRect.height
    }
}
