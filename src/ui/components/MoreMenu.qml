import QtQuick
import QtQuick.Templates as T
import Pingwell

/** What else can be done with something: a small button, and the menu it opens. Its children are the entries. */
MoreButton {
    id: root

    default property alias entries: menu.contentData

    open: menu.visible
    onClicked: menu.visible ? menu.close() : menu.open()
    Keys.onDownPressed: menu.open()

    PopupMenu {
        id: menu

        x: root.width - width
        y: root.height + 4
        closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent
    }
}
