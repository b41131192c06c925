import QtQuick
import Pingwell

/** A button with words, and a symbol where it has one. Filled when prominent, outlined otherwise. */
Pressable {
    id: root

    required property string label
    property string symbolName
    property bool prominent: false
    property bool destructive: false
    property real textSize: Theme.sizeBody
    property int contentSpacing: 6
    /** Shows all of a long label, on as many lines as it needs. */
    property bool wraps: false
    readonly property int lineCount: (root.contentItem as ButtonLabel)?.lineCount ?? 1
    readonly property color ink: root.prominent ? Theme.textOnAccent
                                                : root.destructive ? Theme.danger : Theme.textPrimary

    implicitWidth: Math.max(implicitContentWidth + leftPadding + rightPadding, 64)
    implicitHeight: 28
    meaning: root.label
    leftPadding: Theme.gap3
    rightPadding: Theme.gap3
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
        wraps: root.wraps
    }
}
