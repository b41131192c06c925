import QtQuick
import Pingwell

/** A button that is only a symbol. `label` is what it is called, and what its tool tip says unless `help` says more. */
Pressable {
    id: root

    required property string label
    required property string symbolName
    property string help: root.label
    property bool showsHelp: root.hovered || root.visualFocus
    property color color: Theme.textSecondary

    implicitWidth: 24
    implicitHeight: 24
    meaning: root.label
    Accessible.name: root.label
    Accessible.description: root.help === root.label ? "" : root.help

    background: PressFill {
        control: root
    }

    contentItem: Item {
        Symbol {
            anchors.centerIn: parent
            name: root.symbolName
            color: root.color
        }
    }

    PlainToolTip {
        help: root.help
        visible: root.showsHelp
    }
}
