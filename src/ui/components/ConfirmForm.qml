import QtQuick
import Pingwell

/** The content of a sheet that asks before something that cannot be undone. Return never says yes. */
Column {
    id: root

    required property string idPrefix
    required property string title
    required property string message
    required property string confirmLabel

    signal cancelled
    signal confirmed

    spacing: Theme.gap3
    Accessible.role: Accessible.Dialog
    Accessible.name: root.title
    Accessible.description: root.message
    Component.onCompleted: cancel.forceActiveFocus()

    PlainText {
        width: parent.width
        text: root.title
        size: Theme.sizeReading
        font.weight: Font.DemiBold
        wrapMode: Text.Wrap
        Accessible.role: Accessible.Heading
    }

    PlainText {
        width: parent.width
        text: root.message
        color: Theme.textSecondary
        wrapMode: Text.Wrap
        lineHeight: 1.15
    }

    Row {
        anchors.right: parent.right
        topPadding: Theme.gap1
        spacing: Theme.gap2

        PlainButton {
            id: cancel

            objectName: root.idPrefix + ".cancel"
            label: "Cancel"
            onClicked: root.cancelled()
        }

        PlainButton {
            objectName: root.idPrefix + ".confirm"
            label: root.confirmLabel
            destructive: true
            onClicked: root.confirmed()
        }
    }
}
