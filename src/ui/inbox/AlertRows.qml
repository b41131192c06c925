import QtQuick
import QtQuick.Templates as T
import Pingwell

/**
 * A long list of rows of one height, one stop for the keyboard, which moves within it. What the person looks at stays
 * where it is while rows come and go.
 */
RowList {
    id: root

    required property AppStore store
    required property real rowHeight
    readonly property int page: Math.max(1, Math.floor(root.height / root.rowHeight) - 1)
    /** The keyboard was used last, not the pointer. */
    property bool usesKeyboard: false
    /** The store's clock, which stands still where nobody looks. */
    property double now

    signal opened

    function moveTo(row: int) {
        root.usesKeyboard = true
        root.show(row)
    }

    /** Puts the keyboard's place at the row nearest to that one, and into view. */
    function show(row: int) {
        if (root.count === 0)
            return
        root.currentIndex = Math.max(0, Math.min(row, root.count - 1))
        root.positionViewAtIndex(root.currentIndex, ListView.Contain)
    }

    function startOver() {
        root.currentIndex = -1
        root.positionViewAtBeginning()
    }

    /** The row that a key leads to; -1 for other keys. */
    function destination(key: int): int {
        switch (key) {
        case Qt.Key_Up: return Math.max(0, root.currentIndex - 1)
        case Qt.Key_Down: return root.currentIndex + 1
        case Qt.Key_PageUp: return Math.max(0, root.currentIndex - root.page)
        case Qt.Key_PageDown: return root.currentIndex + root.page
        case Qt.Key_Home: return 0
        case Qt.Key_End: return root.count
        }
        return -1
    }

    topMargin: Theme.gap1
    bottomMargin: Theme.gap1
    clip: true
    highlightFollowsCurrentItem: false
    keyNavigationEnabled: false
    reuseItems: true
    activeFocusOnTab: true
    Accessible.role: Accessible.List
    T.ScrollBar.vertical: SlimScrollBar {}
    Keys.onReturnPressed: root.opened()
    Keys.onEnterPressed: root.opened()
    Keys.onPressed: event => {
        const row = root.destination(event.key)
        if (row < 0 || event.modifiers & ~Qt.KeypadModifier)
            return
        root.moveTo(row)
        event.accepted = true
    }

    Binding on now {
        when: root.visible
        value: root.store.now
        restoreMode: Binding.RestoreNone
    }

    ListAnchor {
        view: root
        model: root.model
        rowHeight: root.rowHeight
    }
}
