import QtQuick
import Pingwell

/** What the person had typed when an ask could no longer be answered: to be read and copied. Empty takes no room. */
Column {
    id: root

    required property AppStore store
    required property string alertID
    required property string idPrefix
    property real textSize: Theme.sizeBody
    /** The ask can't be answered any more. */
    required property bool isOver
    property string draft

    function takeDraft() {
        root.draft = root.store.replyDraft(root.alertID)
    }

    /** Gives the text the focus, from where it can be copied; false when there is none. */
    function takeFocus(): bool {
        if (root.visible)
            text.forceActiveFocus(Qt.OtherFocusReason)
        return root.visible
    }

    visible: root.isOver && root.draft.length > 0
    spacing: Theme.gap1
    Component.onCompleted: root.takeDraft()
    onAlertIDChanged: root.takeDraft()

    Connections {
        target: root.store

        function onReplyDraftChanged(alertID: string) {
            if (alertID === root.alertID)
                root.takeDraft()
        }
    }

    PlainText {
        id: label

        text: "Your unsent reply"
        size: Theme.sizeSmall
        color: Theme.textSecondary
    }

    PlainSelectableText {
        id: text

        objectName: root.idPrefix + ".unsent"
        width: root.width
        text: root.draft
        size: root.textSize
        Accessible.name: label.text + ": " + root.draft
    }
}
