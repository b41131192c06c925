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

    /** Moves the content by `distance`: what stood somewhere in view stays there. */
    function shift(distance: real) {
        contentY = Math.max(0, contentY + distance)
    }
}
