import QtQuick
import Pingwell

/** A row of a form that does something when it is pressed. */
Pressable {
    id: root

    required property string label
    required property string symbolName
    property bool destructive: false

    width: parent?.width ?? implicitWidth
    implicitHeight: 40
    leftPadding: Theme.gap4
    rightPadding: Theme.gap4
    Accessible.name: root.label

    background: Item {
        PressFill {
            anchors.fill: parent
            anchors.margins: Theme.gap1
            control: root
        }

        FormDivider {
            visible: root.y > 0
        }
    }

    contentItem: FormButtonLabel {
        label: root.label
        symbolName: root.symbolName
        ink: root.destructive ? Theme.danger : Theme.textPrimary
        symbolInk: root.destructive ? Theme.danger : Theme.textSecondary
    }
}
