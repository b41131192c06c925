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
    required property bool canDelete
    readonly property Item focusedItem: Window.activeFocusItem
    readonly property bool nothingFocused: root.focusedItem === null || root.focusedItem === Window.contentItem
    readonly property bool typing: root.isField(root.focusedItem)
    /** What had the focus last was typed in. */
    property bool typedLast: false
    /** A field went away while it was typed in: until the person moves on, what they type is still meant for it. */
    property bool isDeaf: false
    /** What has the focus in its place. */
    property Item leftAt: null
    readonly property bool takesLetters: root.active && !root.typing && !root.nothingFocused && !root.isDeaf

    signal filtersRequested
    signal backRequested
    signal deleteRequested

    function isField(item: Item): bool {
        return (item as TextInput) !== null || (item as TextEdit)?.readOnly === false
    }

    /** The focus was given to something in place of a lost field. */
    function becomeDeaf() {
        root.leftAt = root.focusedItem
        root.isDeaf = true
    }

    onFocusedItemChanged: {
        if (root.focusedItem === null || root.focusedItem === root.Window.contentItem)
            return
        root.typedLast = root.isField(root.focusedItem)
        if (root.focusedItem !== root.leftAt)
            root.isDeaf = false
    }

    Shortcut {
        enabled: root.takesLetters && root.alertID.length > 0
        sequence: "U"
        autoRepeat: false
        onActivated: root.store.toggleRead(root.alertID)
    }

    Shortcut {
        enabled: root.takesLetters && root.canDelete && root.alertID.length > 0
        sequence: "Del"
        // A key held down must not empty the inbox.
        autoRepeat: false
        onActivated: root.deleteRequested()
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
