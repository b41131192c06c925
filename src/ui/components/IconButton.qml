import QtQuick
import QtQuick.Templates as T
import Pingwell

/** A button that is only a symbol; `label` is what it is called. */
T.AbstractButton {
    id: root

    required property string label
    required property string symbolName
    property color color: Theme.textSecondary

    implicitWidth: 24
    implicitHeight: 24
    focusPolicy: Qt.TabFocus
    hoverEnabled: true
    opacity: enabled ? 1 : Theme.disabledOpacity
    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()
    Accessible.role: Accessible.Button
    Accessible.name: root.label

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
}
