import Pingwell

/** Which server the program follows, and when it last heard from it. */
FormSection {
    id: root

    required property AppStore store
    /** Milliseconds since 1970; negative while nothing came yet. */
    required property real lastSyncedAt

    readonly property ServerInUse inUse: ServerInUse {
        store: root.store
    }

    title: "Server"

    FormRow {
        objectName: "settings.server.name"
        label: "Connected to"
        value: root.store.serverLabel
    }

    FormRow {
        objectName: "settings.server.host"
        visible: root.inUse.host.length > 0
        label: "Address"
        value: root.inUse.host
    }

    FormRow {
        objectName: "settings.server.updated"
        visible: root.lastSyncedAt >= 0
        label: "Last updated"
        value: TimeText.relativeAge(root.lastSyncedAt, root.store.now)
    }

    FormNote {
        text: "To switch servers, sign out and pick another one on the sign-in screen."
    }
}
