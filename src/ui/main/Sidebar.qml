import QtQuick
import Pingwell

/** The left column of the main screen. */
Rectangle {
    id: root

    required property AppStore store

    /** The person wants to know the keys. */
    signal shortcutsRequested

    /** Gives the focus to the row of the section that is shown. */
    function takeFocus() {
        for (let row = inbox; row; row = row.KeyNavigation.down as SidebarRow) {
            if (row.selected) {
                row.forceActiveFocus(Qt.TabFocusReason)
                return
            }
        }
    }

    color: Theme.sidebar
    Accessible.ignored: true

    SignedInPerson {
        id: person

        store: root.store
    }

    Row {
        id: brand

        x: Theme.gap4
        y: Theme.gap4
        spacing: Theme.gap2

        AppGlyph {
            anchors.verticalCenter: parent.verticalCenter
        }

        PlainText {
            anchors.verticalCenter: parent.verticalCenter
            text: "Pingwell"
            size: Theme.sizeTitle
            font.weight: Font.DemiBold
        }
    }

    WorkspaceMenu {
        id: workspaces

        x: 10
        anchors.top: brand.bottom
        anchors.topMargin: 6
        width: root.width - 20
        store: root.store
        idPrefix: "sidebar.workspace"
    }

    Column {
        x: 10
        anchors.top: workspaces.bottom
        anchors.topMargin: 2 + Theme.gap2
        width: root.width - 20
        spacing: 2

        SidebarRow {
            id: inbox

            width: parent.width
            store: root.store
            section: "inbox"
            symbolName: "tray"
            badge: root.store.unreadCount
            KeyNavigation.down: topics
        }

        SidebarRow {
            id: topics

            width: parent.width
            store: root.store
            section: "topics"
            symbolName: "number"
            KeyNavigation.down: team
        }

        SidebarRow {
            id: team

            width: parent.width
            store: root.store
            section: "team"
            symbolName: "person.2"
            badge: person.invitationCount
            KeyNavigation.down: settings
        }

        SidebarRow {
            id: settings

            width: parent.width
            store: root.store
            section: "settings"
            symbolName: "gearshape"
        }
    }

    SidebarAccount {
        id: account

        anchors.bottom: parent.bottom
        width: parent.width
        store: root.store
        person: person
    }

    IconButton {
        objectName: "sidebar.shortcuts"
        anchors.right: parent.right
        anchors.rightMargin: Theme.gap2
        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.gap2
        label: "Keyboard shortcuts"
        symbolName: "keyboard"
        color: Theme.textTertiary
        onClicked: root.shortcutsRequested()
    }
}
