import QtQuick
import Pingwell

/**
 * The reply to a text ask. What is typed lives in the store, so that it outlives this field; the store's word goes where
 * the two differ, without moving the caret or disturbing a composition under way.
 */
Item {
    id: root

    required property AppStore store
    required property alertRow alert
    required property string idPrefix
    property bool compact: false
    property int topPadding: 0
    readonly property string alertID: root.alert.id

    implicitHeight: root.topPadding + field.height
    Component.onCompleted: root.takeAlert()
    onAlertIDChanged: root.takeAlert()
    Window.onActiveChanged: root.takeFocus()

    function takeAlert() {
        root.followDraft()
        root.takeFocus()
    }

    /** Shows the store's draft where the field holds something else. */
    function followDraft() {
        const area = field.area
        const draft = root.store.replyDraft(root.alertID)
        if (draft === area.text || area.inputMethodComposing)
            return
        if (area.text.startsWith(draft)) {
            area.remove(draft.length, area.length)
            return
        }
        const caret = area.activeFocus ? area.cursorPosition : draft.length
        area.text = draft
        area.cursorPosition = Math.min(caret, area.length)
    }

    /** Takes the focus where this reply is asked for; only in the window in use, for others may show the same alert. */
    function takeFocus() {
        if (root.store.requestedReplyID !== root.alertID || !root.Window.active)
            return
        field.area.forceActiveFocus(Qt.OtherFocusReason)
        root.store.requestedReplyID = ""
    }

    /** The reply is on its way to the store. */
    signal sending

    function send() {
        root.sending()
        root.store.answer(root.alertID, field.text)
    }

    Connections {
        target: root.store

        function onReplyDraftChanged(alertID: string) {
            if (alertID === root.alertID)
                root.followDraft()
        }
        function onRequestedReplyIDChanged() {
            root.takeFocus()
        }
    }

    Connections {
        target: field.area

        function onTextChanged() {
            root.store.setReplyDraft(field.text, root.alertID)
            root.followDraft()
        }
        function onInputMethodComposingChanged() {
            root.followDraft()
        }
    }

    PlainTextArea {
        id: field

        y: root.topPadding
        width: root.width - sendButton.width - Theme.gap2
        identifier: root.idPrefix + ".reply"
        label: "Reply to " + root.alert.title
        hint: root.alert.placeholder.length > 0 ? root.alert.placeholder : "Type a reply…"
        textSize: root.compact ? Theme.sizeBody : Theme.sizeReading
        maximumLines: root.compact ? 4 : 8
        onSubmitted: if (guard.takesKeys()) root.send()
    }

    // A Return typed for another program, or for another ask, sends nothing.
    PressGuard {
        id: guard

        meaning: root.alertID
    }

    PlainButton {
        id: sendButton

        objectName: root.idPrefix + ".send"
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        implicitHeight: field.oneLineHeight
        implicitWidth: root.compact ? 52 : 72
        leftPadding: Theme.gap2
        rightPadding: Theme.gap2
        label: "Send"
        meaning: root.alertID
        prominent: true
        textSize: root.compact ? Theme.sizeNote : Theme.sizeBody
        enabled: field.text.trim().length > 0
        onClicked: root.send()
    }
}
