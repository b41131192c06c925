import QtQuick
import Pingwell

/** The content of the sheet that invites one person; `invited` once the invitation is on its way. */
SheetForm {
    id: root

    required property TeamModel team
    property string role: "member"
    property string error

    signal invited

    function send() {
        root.error = root.team.invite(email.text, root.role)
        if (root.error)
            email.forceActiveFocus()
        else
            root.invited()
    }

    objectName: "team.inviteSheet"
    idPrefix: "team.invite"
    title: "Invite to " + root.team.workspaceName
    note: "They'll get an email with a link to join."
    acceptWord: "send"
    acceptLabel: "Send invite"
    onAccepted: root.send()
    Component.onCompleted: email.forceActiveFocus()

    FormField {
        width: parent.width
        label: "Email"

        PlainTextField {
            id: email

            objectName: "team.invite.email"
            width: parent.width
            label: "Email"
            hint: "name@company.com"
            inputMethodHints: Qt.ImhEmailCharactersOnly
            onTextEdited: root.error = ""
            Accessible.description: root.error
        }
    }

    FormField {
        label: "Role"

        Picker {
            objectName: "team.invite.role"
            takesReturn: false
            label: "Role"
            values: root.team.roles
            labels: root.team.roles
            current: root.role
            onChosen: value => root.role = value
        }
    }

    SymbolLabel {
        objectName: "team.invite.error"
        width: parent.width
        visible: text.length > 0
        symbolName: "exclamationmark.triangle.fill"
        text: root.error
        color: Theme.danger
        Accessible.role: Accessible.AlertMessage
    }
}
