import Pingwell

/** Asks before an alert is deleted by key: the key may have been meant for something else. */
ConfirmSheet {
    id: root

    property bool asked: false
    property string alertID
    property string alertTitle

    signal deleteRequested

    function ask(alertID: string, alertTitle: string) {
        root.alertID = alertID
        root.alertTitle = alertTitle
        root.asked = true
    }

    wanted: root.asked
    idPrefix: "inbox.delete"
    title: "Delete “" + root.alertTitle + "”?"
    message: "This deletes the alert for everyone in the workspace. It can't be undone."
    confirmLabel: "Delete"
    onConfirmed: root.deleteRequested()
    onClosed: root.asked = false
}
