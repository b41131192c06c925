import QtQuick
import QtQuick.Templates as T
import Pingwell

/** What else can be done with something: a small button, and the menu it opens. Its children are the entries. */
MoreButton {
    id: root

    default property alias entries: menu.contentData

    /** Opens the menu at a place of `item`, where the pointer is. */
    function openAt(item: Item, x: real, y: real) {
        const place = root.mapFromItem(item, x, y)
        menu.openAt(root, place.x, place.y)
    }

    open: menu.visible
    onClicked: menu.visible ? menu.close() : menu.openBelow(root)
    Keys.onDownPressed: menu.openBelow(root)

    PopupMenu {
        id: menu

        closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent
    }
}
