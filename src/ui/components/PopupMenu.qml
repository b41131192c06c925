import QtQuick
import QtQuick.Templates as T
import Pingwell

/**
 * A menu over the window, as wide as its longest entry. A menu within it opens beside the entry that stands for it, which
 * has its title and its identifier.
 */
T.Menu {
    id: root

    /** Opens below the button it belongs to, with its end below the button's. */
    function openBelow(button: Item) {
        root.openAt(button, button.width - root.width, button.height + Theme.gap1)
    }

    /** Opens at a place of the item it belongs to, which may be far outside of it. */
    function openAt(owner: Item, x: real, y: real) {
        root.parent = owner
        root.x = x
        root.y = y
        root.open()
    }

    function widestEntry(): real {
        let widest = 0
        for (let index = 0; index < root.count; ++index)
            widest = Math.max(widest, root.itemAt(index)?.implicitWidth ?? 0)
        return Math.ceil(widest)
    }

    /** Puts the keyboard at that entry, or at the next one in the direction (1 or -1) that can be chosen. */
    function moveTo(index: int, direction: int) {
        while (index >= 0 && index < root.count && !root.itemAt(index).activeFocusOnTab)
            index += direction
        if (index >= 0 && index < root.count)
            root.currentIndex = index
    }

    /** By how many entries a page goes on: one less than are seen. */
    function page(): int {
        return Math.max(1, Math.floor(root.count * root.availableHeight / root.contentHeight) - 1)
    }

    implicitWidth: Math.max(root.widestEntry() + leftPadding + rightPadding, 160)
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    padding: Theme.gap1
    margins: Theme.gap2
    overlap: 0
    cascade: true

    FocusReturn {
        popup: root
    }

    delegate: PopupMenuItem {
        id: entry

        objectName: entry.subMenu?.objectName ?? ""
        label: entry.subMenu?.title ?? ""
        opensMenu: true
        enabled: entry.subMenu?.enabled ?? false
    }

    contentItem: RowList {
        implicitHeight: contentHeight
        model: root.contentModel
        interactive: contentHeight > height
        clip: interactive
        focus: true
        keyNavigationEnabled: false
        currentIndex: root.currentIndex
        T.ScrollBar.vertical: SlimScrollBar {}
        Keys.onPressed: event => {
            if (event.key === Qt.Key_Home)
                root.moveTo(0, 1)
            else if (event.key === Qt.Key_End)
                root.moveTo(root.count - 1, -1)
            else if (event.key === Qt.Key_PageUp)
                root.moveTo(Math.max(0, root.currentIndex - root.page()), 1)
            else if (event.key === Qt.Key_PageDown)
                root.moveTo(Math.min(root.count - 1, root.currentIndex + root.page()), -1)
            else
                return
            event.accepted = true
        }
    }

    background: Rectangle {
        color: Theme.raised
        radius: Theme.radius + 2
        border.width: 1
        border.color: Theme.controlBorder
    }

    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Theme.durationShort }
    }
    exit: Transition {
        NumberAnimation { property: "opacity"; from: 1; to: 0; duration: Theme.durationShort }
    }
}
