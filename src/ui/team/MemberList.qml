pragma ComponentBehavior: Bound

import QtQuick
import Pingwell

/**
 * The members of a team, as tall as all of them. Only those in view of `area`, whose content it belongs to, are made: the
 * list within is as tall as the view and goes along with it.
 */
Item {
    id: root

    required property TeamModel team
    required property ScrollArea area
    readonly property real rowHeight: 52

    /** The menu of what can be done with that member, made ready to open. */
    function menuOf(row: MemberRow): MemberActionsMenu {
        const menu = row.member.isInvited ? inviteeMenu : memberMenu
        menu.row = row
        return menu
    }

    function toggleMenu(row: MemberRow, button: Item) {
        if (row.menuOpen)
            root.menuOf(row).close()
        else
            root.menuOf(row).openBelow(button)
    }

    function revealCurrent() {
        const top = root.y + list.currentIndex * root.rowHeight
        root.area.reveal(top, top + root.rowHeight)
    }

    implicitHeight: list.count * root.rowHeight

    RowList {
        id: list

        objectName: "team.list"
        y: Math.max(0, Math.min(root.area.contentY - root.y, root.height - height))
        width: root.width
        height: Math.min(root.height, root.area.height)
        contentY: originY + y
        interactive: false
        keyNavigationEnabled: true
        highlightFollowsCurrentItem: false
        // A row that is made for it gets the focus before it is in its place.
        onCurrentIndexChanged: if (activeFocus) root.revealCurrent()
        Keys.onPressed: event => {
            if (event.key === Qt.Key_Home)
                list.currentIndex = 0
            else if (event.key === Qt.Key_End)
                list.currentIndex = list.count - 1
            else
                return
            event.accepted = true
        }
        Accessible.role: Accessible.List
        Accessible.name: "Members"

        model: MemberListModel {
            store: root.team.store
        }

        delegate: MemberRow {
            id: row

            required property int index

            width: list.width
            now: root.team.store.now
            actionsWidth: root.team.canManage ? 28 : 0
            menuOpen: (memberMenu.visible && memberMenu.row === row)
                || (inviteeMenu.visible && inviteeMenu.row === row)
            // One stop for the whole list; the arrow keys move within it.
            activeFocusOnTab: list.currentIndex < 0 || list.currentIndex === index
            onActiveFocusChanged: if (activeFocus) list.currentIndex = index
            onMenuRequested: button => root.toggleMenu(row, button)
            onMenuRequestedAt: (button, x, y) => root.menuOf(row).openAt(button, x, y)
        }
    }

    MemberMenu {
        id: memberMenu

        team: root.team
    }

    InviteeMenu {
        id: inviteeMenu

        team: root.team
    }
}
