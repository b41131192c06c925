import QtQuick
import Pingwell

/** The content of the sheet that asks for a new workspace's name. */
SheetForm {
    id: root

    readonly property string name: field.text

    objectName: "workspace.createSheet"
    idPrefix: "workspace.create"
    title: "New team workspace"
    note: "Share alerts with your team. You'll be its owner."
    acceptWord: "submit"
    acceptLabel: "Create"
    acceptable: field.text.trim().length > 0
    Component.onCompleted: field.forceActiveFocus()

    FormField {
        width: parent.width
        label: "Name"

        PlainTextField {
            id: field

            objectName: "workspace.create.name"
            width: parent.width
            label: "Name"
            hint: "Platform team"
        }
    }
}
