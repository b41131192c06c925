import QtQuick
import Pingwell

/** What the team screen shows where there is no team. */
Column {
    id: root

    required property AppStore store

    objectName: "team.empty"
    topPadding: Theme.gap10
    bottomPadding: Theme.gap10
    spacing: Theme.gap1
    Accessible.role: Accessible.Grouping
    Accessible.name: title.text + ". " + line.text

    Symbol {
        anchors.horizontalCenter: parent.horizontalCenter
        name: "person.3"
        size: 32
        color: Theme.textTertiary
    }

    PlainText {
        id: title

        width: parent.width
        topPadding: Theme.gap2
        horizontalAlignment: Text.AlignHCenter
        text: "Create a team workspace to invite people"
        size: Theme.sizeReading
        font.weight: Font.Medium
        wrapMode: Text.Wrap
        Accessible.ignored: true
    }

    PlainText {
        id: line

        width: parent.width
        horizontalAlignment: Text.AlignHCenter
        text: "Personal workspaces have just you."
        color: Theme.textSecondary
        wrapMode: Text.Wrap
        Accessible.ignored: true
    }

    Item {
        width: 1
        height: Theme.gap2
    }

    PlainButton {
        objectName: "team.createWorkspace"
        anchors.horizontalCenter: parent.horizontalCenter
        label: "Create team workspace…"
        onClicked: root.store.isCreatingWorkspace = true
    }
}
