import QtQuick
import Pingwell

/** The team section of the main screen: who is in the active workspace, and what the person may do about it. */
Item {
    id: root

    required property AppStore store
    property bool showInvite: false
    property bool showRename: false
    property bool confirmLeave: false
    readonly property string workspaceID: root.store.activeWorkspaceID
    readonly property bool isOwner: activeTeam.isOwner

    function closeSheets() {
        root.showInvite = false
        root.showRename = false
        root.confirmLeave = false
    }

    // What is asked must not be answered for another workspace, nor with another meaning.
    onWorkspaceIDChanged: {
        root.closeSheets()
        page.contentY = 0
    }
    onIsOwnerChanged: root.confirmLeave = false

    TeamModel {
        id: activeTeam

        store: root.store
    }

    ScrollArea {
        id: page

        objectName: "team.scroll"
        anchors.fill: parent
        contentHeight: content.height
        Accessible.role: Accessible.Pane
        Accessible.name: "Team"

        Column {
            id: content

            x: Theme.gap7
            width: Math.min(page.width - 2 * Theme.gap7, Theme.contentWidth)
            topPadding: Theme.gap5
            bottomPadding: Theme.gap7
            spacing: Theme.gap4

            TeamHeader {
                width: content.width
                team: activeTeam
                onInviteRequested: root.showInvite = true
                onRenameRequested: root.showRename = true
            }

            PlainText {
                objectName: "team.locked"
                width: content.width
                visible: activeTeam.isTeam && !activeTeam.canManage
                text: "Only owners and admins can invite people or change roles."
                color: Theme.textSecondary
                wrapMode: Text.Wrap
            }

            TeamEmpty {
                width: content.width
                visible: !activeTeam.isTeam
                store: root.store
            }

            MemberList {
                x: -Theme.gap2
                width: content.width + 2 * Theme.gap2
                visible: activeTeam.isTeam
                team: activeTeam
                area: page
            }

            InvitationSection {
                width: content.width
                store: root.store
            }

            PlainButton {
                objectName: "team.leave"
                visible: activeTeam.isTeam
                destructive: true
                label: activeTeam.isOwner ? "Delete workspace…" : "Leave workspace…"
                onClicked: root.confirmLeave = true
            }
        }
    }

    InviteSheet {
        wanted: root.showInvite
        team: activeTeam
        onClosed: root.showInvite = false
    }

    RenameSheet {
        wanted: root.showRename
        team: activeTeam
        onClosed: root.showRename = false
    }

    LeaveSheet {
        wanted: root.confirmLeave
        team: activeTeam
        onClosed: root.confirmLeave = false
    }
}
