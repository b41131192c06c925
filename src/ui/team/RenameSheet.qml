pragma ComponentBehavior: Bound

import Pingwell

/** Gives the active workspace another name. */
Sheet {
    id: root

    required property TeamModel team

    content: RenameForm {
        width: root.availableWidth
        currentName: root.team.editableName
        onCancelled: root.close()
        onAccepted: {
            if (name !== currentName)
                root.team.store.renameWorkspace(name)
            root.close()
        }
    }
}
