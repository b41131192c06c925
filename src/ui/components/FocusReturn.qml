import QtQuick
import QtQuick.Templates as T

/**
 * Gives the keyboard's focus back to what had it before a popup opened, and as visibly as it had it. Left alone, a menu
 * that closes from within another one loses the focus, and a button that gets it back hides that it has it.
 */
QtObject {
    id: root

    required property T.Popup popup
    property Item before: null
    property int reason: Qt.OtherFocusReason

    /** The item of the popup that `item` is in; null in the window itself. */
    function popupItemOf(item: Item): Item {
        const overlay = root.popup.parent?.T.Overlay.overlay ?? null
        let current = item
        while (current && current.parent !== overlay)
            current = current.parent
        return current
    }

    /** Another popup has opened meanwhile, and has the focus. */
    function isInAnotherPopup(item: Item): bool {
        const there = root.popupItemOf(item)
        return there !== null && there !== root.popupItemOf(root.before) && there !== root.popupItemOf(root.popup.contentItem)
    }

    function giveBack() {
        // Within a sheet it has the focus already, but shows nothing of it: let it get the focus anew.
        root.before.focus = false
        root.before.forceActiveFocus(root.reason)
    }

    readonly property Connections watch: Connections {
        target: root.popup

        function onAboutToShow() {
            root.before = root.popup.parent?.Window.activeFocusItem ?? null
            root.reason = (root.before as T.Control)?.focusReason ?? Qt.OtherFocusReason
        }
        function onClosed() {
            const now = root.popup.parent?.Window.activeFocusItem ?? null
            // The person may have gone on to another place by now.
            const hasGoneOn = now && now !== root.before && (now.activeFocusOnTab || root.isInAnotherPopup(now))
            if (root.before?.visible && !hasGoneOn)
                root.giveBack()
            root.before = null
        }
    }
}
