import QtQuick
import QtQuick.Templates as T
import Pingwell

/** A field for one line of text. `hint` shows while it is empty, as plain text. */
T.TextField {
    id: root

    required property string label
    property string hint
    property real textSize: Theme.sizeBody

    implicitWidth: 200
    implicitHeight: 28
    leftPadding: Theme.gap2
    rightPadding: Theme.gap2
    verticalAlignment: TextInput.AlignVCenter
    font.pointSize: root.textSize * 0.75
    renderType: Text.NativeRendering
    color: Theme.textPrimary
    selectionColor: Theme.textSelection
    selectedTextColor: Theme.textPrimary
    selectByMouse: true
    hoverEnabled: true
    opacity: enabled ? 1 : Theme.disabledOpacity
    Accessible.role: Accessible.EditableText
    Accessible.name: root.label

    background: FieldFrame {
        focused: root.activeFocus
        hovered: root.hovered
    }

    PlainText {
        x: root.leftPadding
        width: root.width - root.leftPadding - root.rightPadding
        height: root.height
        visible: root.length === 0 && root.preeditText.length === 0
        verticalAlignment: Text.AlignVCenter
        text: root.hint
        size: root.textSize
        color: Theme.textTertiary
        Accessible.ignored: true
    }
}
