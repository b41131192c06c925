import QtQuick

/**
 * Asks for the menu of what it lies over or under: with the right button, where the pointer is; or with the keys for it,
 * when those are forwarded here.
 */
MouseArea {
    id: root

    /** By the keyboard. */
    signal menuRequested
    /** By the pointer, at that place. */
    signal menuRequestedAt(x: real, y: real)

    acceptedButtons: Qt.RightButton
    onPressed: mouse => root.menuRequestedAt(mouse.x, mouse.y)
    Keys.onPressed: event => {
        event.accepted = event.key === Qt.Key_Menu || (event.key === Qt.Key_F10 && event.modifiers & Qt.ShiftModifier)
        if (event.accepted)
            root.menuRequested()
    }
}
