pragma ComponentBehavior: Bound

import QtQml
import QtQuick
import Pingwell

/**
 * The keys that answer the open ask: a digit for a choice, R for the reply field. A digit counts for the ask that has been
 * open for a moment, in a window that has been in use for a moment.
 */
Item {
    id: root

    required property AppStore store
    required property bool active
    /** The focus is in the open ask. */
    required property bool takesDigits
    /** Of the open alert; an empty row when there is none. */
    required property alertRow alert
    readonly property bool answers: root.active && root.alert.canAnswer

    Shortcut {
        enabled: root.answers && root.alert.acceptsText
        sequence: "R"
        autoRepeat: false
        onActivated: root.store.requestedReplyID = root.alert.id
    }

    PressGuard {
        id: guard

        meaning: [root.alert.id, ...root.alert.actions].join("\n")
    }

    Instantiator {
        model: 9
        delegate: Shortcut {
            required property int index

            enabled: root.answers && root.takesDigits && !root.alert.acceptsText && index < root.alert.actions.length
            sequence: (index + 1).toString()
            autoRepeat: false
            onActivated: if (guard.takesKeys()) root.store.answer(root.alert.id, root.alert.actions[index])
        }
    }
}
