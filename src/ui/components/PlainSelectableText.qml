import QtQuick
import Pingwell

/** A text of which the person can take a copy: it is marked with the pointer, or with the keyboard once it has the focus. */
TextEdit {
    id: root

    property real size: Theme.sizeBody

    textFormat: TextEdit.PlainText
    renderType: Text.NativeRendering
    wrapMode: TextEdit.Wrap
    readOnly: true
    selectByMouse: true
    selectByKeyboard: true
    activeFocusOnTab: true
    color: Theme.textPrimary
    selectionColor: Theme.textSelection
    selectedTextColor: Theme.textPrimary
    font.pointSize: root.size * 0.75
    onActiveFocusChanged: if (!activeFocus) root.deselect()
    Accessible.role: Accessible.StaticText
    Accessible.name: root.text
    Keys.onTabPressed: root.nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
    Keys.onBacktabPressed: root.nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)

    HoverHandler {
        cursorShape: Qt.IBeamCursor
    }

    FocusRing {
        target: root
        shown: root.activeFocus && root.selectedText.length === 0
    }
}
