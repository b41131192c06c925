pragma ComponentBehavior: Bound

import QtQml
import QtQuick
import QtQuick.Templates as T
import Pingwell

/** Shows the active workspace, and opens the choice of all of them. */
Pressable {
    id: root

    required property AppStore store
    required property string idPrefix
    property bool compact: false
    readonly property workspaceRow active: workspaces.active
    readonly property bool hasActive: root.active.id.length > 0
    readonly property string title: root.hasActive ? root.active.name : "No workspace yet"
    readonly property string subtitle: root.hasActive ? (root.active.isTeam ? "Team" : "Just you") + " · " + root.active.role
        : "Create one here"

    /** The person asked for a new workspace; its sheet is in the main window. */
    signal createRequested

    objectName: root.idPrefix
    implicitWidth: 200
    implicitHeight: root.compact ? 28 : 40
    leftPadding: Theme.gap2
    rightPadding: Theme.gap2
    onClicked: menu.visible ? menu.close() : menu.open()
    Keys.onDownPressed: menu.open()
    Accessible.role: Accessible.ButtonMenu
    Accessible.name: root.compact ? root.title : root.title + ", " + root.subtitle
    Accessible.description: root.title

    WorkspaceListModel {
        id: workspaces

        store: root.store
    }

    background: ButtonFill {
        control: root
    }

    contentItem: WorkspaceMenuLabel {
        symbolName: root.active.isTeam ? "person.3" : "person.crop.circle"
        title: root.title
        subtitle: root.compact ? "" : root.subtitle
        textSize: root.compact ? Theme.sizeBody : Theme.sizeCardTitle
    }

    PopupMenu {
        id: menu

        y: root.height + 4
        width: Math.max(root.width, Math.min(implicitWidth, 320))
        closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent

        Instantiator {
            model: workspaces
            onObjectAdded: (index, object) => menu.insertItem(index, object as PopupMenuItem)
            onObjectRemoved: (index, object) => menu.removeItem(object as PopupMenuItem)
            delegate: PopupMenuItem {
                required property workspaceRow workspace

                objectName: root.idPrefix + ".option." + workspace.id
                label: workspace.name
                isChoice: true
                chosen: workspace.isActive
                symbolName: workspace.isActive ? "checkmark" : ""
                onTriggered: root.store.selectWorkspace(workspace.id)
            }
        }

        PopupMenuSeparator {}

        PopupMenuItem {
            objectName: root.idPrefix + ".create"
            label: "New team workspace…"
            symbolName: "plus"
            onTriggered: {
                root.store.isCreatingWorkspace = true
                root.createRequested()
            }
        }
    }
}
