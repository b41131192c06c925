import QtQuick
import QtQuick.Templates as T
import Pingwell

/**
 * What the buttons have in common, whatever they look like. Return presses them as Space does, once for a key held, where
 * they don't leave it to what they stand in. What came under the pointer or the keyboard just now takes no press that was
 * meant for what was there before.
 */
T.AbstractButton {
    id: root

    property bool takesReturn: true
    /** What a press does and to what, where that can change: see `PressGuard`. */
    property string meaning

    function press(event: KeyEvent) {
        event.accepted = root.takesReturn
        if (root.takesReturn && !event.isAutoRepeat && guard.takesKeys())
            root.clicked()
    }

    focusPolicy: Qt.TabFocus
    hoverEnabled: true
    opacity: enabled ? 1 : Theme.disabledOpacity
    Keys.onReturnPressed: event => root.press(event)
    Keys.onEnterPressed: event => root.press(event)
    Keys.onSpacePressed: event => event.accepted = !guard.takesKeys()

    PressGuard {
        id: guard

        anchors.fill: parent
        z: 1
        meaning: root.meaning
    }
}
