import QtQuick
import Pingwell

/**
 * The keys of the inbox. Sheets and menus hold them back by themselves; a field that is typed in keeps those that write.
 */
Item {
    id: root

    required property AppStore store
    /** The inbox is what is shown. */
    required property bool active
    /** What the keys act on; empty for nothing. */
    required property string alertID
    readonly property Item focusedItem: Window.activeFocusItem
    readonly property bool typing: (root.focusedItem as TextInput) !== null
        || (root.focusedItem as TextEdit)?.readOnly === false
    readonly property bool takesLetters: root.active && !root.typing

    signal filtersRequested
    signal backRequested

    Shortcut {
        enabled: root.takesLetters && root.alertID.length > 0
        sequence: "U"
        autoRepeat: false
        onActivated: root.store.toggleRead(root.alertID)
    }

    Shortcut {
        enabled: root.takesLetters && root.alertID.length > 0
        sequence: "Del"
        // A key held down must not empty the inbox.
        autoRepeat: false
        onActivated: root.store.deleteAlert(root.alertID)
    }

    Shortcut {
        enabled: root.active
        sequence: "Ctrl+F"
        onActivated: root.filtersRequested()
    }

    Shortcut {
        enabled: root.active
        sequence: "Escape"
        onActivated: root.backRequested()
    }
}
