pragma ComponentBehavior: Bound

import QtQuick
import Pingwell

/** The ways out: for now, or for ever. */
FormSection {
    id: root

    required property AppStore store
    property bool confirmDelete: false

    FormButton {
        objectName: "settings.signOut"
        symbolName: "rectangle.portrait.and.arrow.right"
        label: "Sign out"
        onClicked: root.store.signOut()
    }

    FormButton {
        objectName: "settings.deleteAccount"
        symbolName: "trash"
        label: "Delete account…"
        destructive: true
        onClicked: root.confirmDelete = true
    }

    ConfirmSheet {
        wanted: root.confirmDelete
        idPrefix: "settings.deleteAccount"
        title: "Delete your Pingwell account?"
        message: "This deletes your account, your personal workspace and team workspaces you own, with all their "
                 + "alerts and API keys. It can't be undone."
        confirmLabel: "Delete account"
        onConfirmed: root.store.deleteAccount()
        onClosed: root.confirmDelete = false
    }
}
