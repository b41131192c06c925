import QtQuick
import Pingwell

/** The content of the sheet that asks for a workspace's other name. */
SheetForm {
    id: root

    required property string currentName
    readonly property string name: field.text

    objectName: "team.renameSheet"
    idPrefix: "team.rename"
    title: "Rename workspace"
    note: "Everyone in it will see the new name."
    acceptWord: "save"
    acceptLabel: "Save"
    acceptable: field.text.trim().length > 0
    Component.onCompleted: {
        field.text = root.currentName
        field.selectAll()
        field.forceActiveFocus()
    }

    FormField {
        width: parent.width
        label: "Name"

        PlainTextField {
            id: field

            objectName: "team.rename.name"
            width: parent.width
            label: "Name"
            // A longer name that is there already is shown whole.
            maximumLength: Math.max(48, root.currentName.length)
        }
    }
}
