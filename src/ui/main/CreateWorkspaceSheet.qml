pragma ComponentBehavior: Bound

import QtQuick
import Pingwell

/** Asks for the name of a new team workspace. Open while the store says so. */
Sheet {
    id: root

    required property AppStore store

    wanted: root.store.isCreatingWorkspace
    onClosed: root.store.isCreatingWorkspace = false

    content: CreateWorkspaceForm {
        width: root.availableWidth
        onCancelled: root.close()
        onAccepted: {
            root.store.createWorkspace(name)
            root.close()
        }
    }
}
