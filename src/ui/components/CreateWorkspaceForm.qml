import QtQuick
import Pingwell

/** The content of the sheet that asks for a new workspace's name. */
Column {
    id: root

    signal cancelled
    signal accepted(name: string)

    function create() {
        if (name.text.trim().length > 0)
            root.accepted(name.text)
    }

    objectName: "workspace.createSheet"
    spacing: Theme.gap3
    Accessible.role: Accessible.Dialog
    Accessible.name: title.text
    Component.onCompleted: name.forceActiveFocus()

    Column {
        width: parent.width
        spacing: Theme.gap1

        PlainText {
            id: title

            text: "New team workspace"
            size: Theme.sizeReading
            font.weight: Font.DemiBold
            Accessible.role: Accessible.Heading
        }

        PlainText {
            width: parent.width
            text: "Share alerts with your team. You'll be its owner."
            color: Theme.textSecondary
            wrapMode: Text.Wrap
        }
    }

    Column {
        width: parent.width
        spacing: Theme.gap1

        SectionLabel {
            text: "Name"
        }

        PlainTextField {
            id: name

            objectName: "workspace.create.name"
            width: parent.width
            label: "Name"
            hint: "Platform team"
            onAccepted: root.create()
        }
    }

    Row {
        anchors.right: parent.right
        topPadding: Theme.gap1
        spacing: Theme.gap2

        PlainButton {
            objectName: "workspace.create.cancel"
            label: "Cancel"
            onClicked: root.cancelled()
        }

        PlainButton {
            objectName: "workspace.create.submit"
            label: "Create"
            prominent: true
            enabled: name.text.trim().length > 0
            onClicked: root.create()
        }
    }
}
