import QtQuick
import QtQuick.Templates as T
import Pingwell

/** A column of content that scrolls when it has to. */
Flickable {
    id: root

    readonly property Item focused: Window.activeFocusItem

    contentWidth: width
    boundsBehavior: Flickable.StopAtBounds
    clip: true
    flickableDirection: Flickable.VerticalFlick
    interactive: contentHeight > height
    onContentHeightChanged: if (!moving) returnToBounds()
    onFocusedChanged: root.revealFocused()

    // From wherever the focus is in here; fields keep what moves their caret.
    Keys.onPressed: event => {
        event.accepted = event.key === Qt.Key_PageUp || event.key === Qt.Key_PageDown
        if (event.accepted)
            page(event.key === Qt.Key_PageUp ? -1 : 1)
    }

    T.ScrollBar.vertical: SlimScrollBar {}

    /** Who moves through the controls with the keyboard sees the one they are at. */
    function revealFocused() {
        for (let item = focused; item; item = item.parent) {
            if (item === contentItem) {
                const top = focused.mapToItem(contentItem, 0, 0).y
                reveal(top, top + focused.height)
                return
            }
        }
    }

    /** Scrolls so little that the area from `top` to `bottom`, in content coordinates, is seen. */
    function reveal(top: real, bottom: real) {
        const lowest = Math.max(0, Math.min(bottom + Theme.gap2 - height, contentHeight - height))
        const highest = Math.max(0, top - Theme.gap2)
        if (contentY < lowest)
            contentY = lowest
        if (contentY > highest)
            contentY = highest
    }

    /** Goes on by a little less than what is seen, so that the last line read is the first one then. */
    function page(direction: int) {
        const last = Math.max(0, contentHeight - height)
        contentY = Math.max(0, Math.min(last, contentY + direction * height * 0.9))
    }

    /** Moves the content by `distance`: what stood somewhere in view stays there. */
    function shift(distance: real) {
        contentY = Math.max(0, contentY + distance)
    }
}
