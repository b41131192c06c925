import QtQuick
import QtQuick.Templates as T
import Pingwell

/**
 * What the buttons have in common, whatever they look like. Return presses them as Space does, once for a key held, where
 * they don't leave it to what they stand in. What came under the pointer or the keyboard just now takes no press that was
 * meant for what was there before, and a press that has begun ends without effect when what it does changes.
 */
T.AbstractButton {
    id: root

    property bool takesReturn: true
    /** What a press does and to what, where that can change: see `PressGuard`. */
    property string meaning
    /** Space is down, and was pressed on this. */
    property bool spaceIsDown: false

    function press(event: KeyEvent) {
        event.accepted = root.takesReturn
        if (root.takesReturn && !event.isAutoRepeat && guard.takesKeys())
            root.clicked()
    }

    // The template takes any release of Space for a press, even of one that went down elsewhere.
    function release(event: KeyEvent) {
        if (event.key !== Qt.Key_Space || event.isAutoRepeat)
            return
        event.accepted = true
        if (!root.spaceIsDown)
            return
        root.spaceIsDown = false
        root.clicked()
    }

    focusPolicy: Qt.TabFocus
    hoverEnabled: true
    opacity: enabled ? 1 : Theme.disabledOpacity
    Keys.onReturnPressed: event => root.press(event)
    Keys.onEnterPressed: event => root.press(event)
    Keys.onSpacePressed: event => {
        if (!event.isAutoRepeat)
            root.spaceIsDown = guard.takesKeys()
    }
    Keys.onReleased: event => root.release(event)
    down: root.pressed || root.spaceIsDown
    onMeaningChanged: root.spaceIsDown = false
    onActiveFocusChanged: root.spaceIsDown = false

    PressGuard {
        id: guard

        anchors.fill: parent
        z: 1
        meaning: root.meaning
    }
}
