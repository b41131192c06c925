import QtQuick
import QtQuick.Templates as T
import Pingwell

/** A button with words, and a symbol where it has one. Filled when prominent, outlined otherwise. */
T.AbstractButton {
    id: root

    required property string label
    property string symbolName
    property bool prominent: false
    property bool destructive: false
    property real textSize: Theme.sizeBody
    property int contentSpacing: 6
    readonly property color ink: root.prominent ? Theme.textOnAccent
                                                : root.destructive ? Theme.danger : Theme.textPrimary

    implicitWidth: Math.max(implicitContentWidth + leftPadding + rightPadding, 64)
    implicitHeight: 28
    leftPadding: Theme.gap3
    rightPadding: Theme.gap3
    focusPolicy: Qt.TabFocus
    hoverEnabled: true
    opacity: enabled ? 1 : Theme.disabledOpacity
    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()
    Accessible.role: Accessible.Button
    Accessible.name: root.label

    background: ButtonFill {
        control: root
        prominent: root.prominent
    }

    contentItem: ButtonLabel {
        label: root.label
        symbolName: root.symbolName
        textSize: root.textSize
        spacing: root.contentSpacing
        ink: root.ink
    }
}
