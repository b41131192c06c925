import QtQuick
import QtQuick.Templates as T
import Pingwell

/**
 * What the buttons have in common, whatever they look like. Return presses them as Space does, once for a key held, where
 * they don't leave it to what they stand in.
 */
T.AbstractButton {
    id: root

    property bool takesReturn: true

    function press(event: KeyEvent) {
        event.accepted = root.takesReturn
        if (root.takesReturn && !event.isAutoRepeat)
            root.clicked()
    }

    focusPolicy: Qt.TabFocus
    hoverEnabled: true
    opacity: enabled ? 1 : Theme.disabledOpacity
    Keys.onReturnPressed: event => root.press(event)
    Keys.onEnterPressed: event => root.press(event)
}
