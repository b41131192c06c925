pragma ComponentBehavior: Bound

import QtQml
import QtQuick
import Pingwell

/** What can be done with a member who has joined. */
MemberActionsMenu {
    id: root

    readonly property string role: root.row?.member.role ?? ""
    readonly property bool canChangeRole: root.row?.member.canChangeRole ?? false

    PopupMenu {
        id: roles

        objectName: root.idPrefix + ".changeRole"
        title: "Change role"

        Instantiator {
            model: root.team.roles
            onObjectAdded: (index, object) => roles.insertItem(index, object as PopupMenuItem)
            onObjectRemoved: (index, object) => roles.removeItem(object as PopupMenuItem)
            delegate: PopupMenuItem {
                required property string modelData

                objectName: root.idPrefix + ".role." + modelData
                label: modelData
                isChoice: true
                chosen: modelData === root.role
                symbolName: chosen ? "checkmark" : ""
                // An owner is made by the service alone.
                enabled: chosen || (root.canChangeRole && modelData !== "owner")
                onTriggered: root.team.changeRole(root.memberID, modelData)
            }
        }
    }

    PopupMenuSeparator {}

    PopupMenuItem {
        objectName: root.idPrefix + ".remove"
        label: "Remove from workspace"
        symbolName: "trash"
        destructive: true
        enabled: root.row?.member.canRemove ?? false
        onTriggered: root.team.store.removeMember(root.memberID)
    }
}
