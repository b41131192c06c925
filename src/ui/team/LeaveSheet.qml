import Pingwell

/** Asks before the person leaves the active workspace, or deletes it as its owner. */
ConfirmSheet {
    id: root

    required property TeamModel team
    readonly property bool deletes: root.team.isOwner

    idPrefix: "team.leave"
    title: (root.deletes ? "Delete " : "Leave ") + root.team.workspaceName + "?"
    message: root.deletes
             ? "You own this workspace. Deleting it removes its alerts, topics and API keys for every member."
             : "You'll stop getting its alerts. An admin can invite you again."
    confirmLabel: root.deletes ? "Delete for everyone" : "Leave"
    onConfirmed: root.team.store.leaveWorkspace()
}
