import QtQuick
import Pingwell

/** The keys that work in every section of the main screen. */
Item {
    id: root

    required property AppStore store

    /** A section was chosen by key, perhaps the one that is shown. */
    signal sectionChosen
    signal shortcutsRequested

    function choose(section: string) {
        root.store.section = section
        root.sectionChosen()
    }

    Shortcut {
        sequence: "Ctrl+1"
        onActivated: root.choose("inbox")
    }

    Shortcut {
        sequence: "Ctrl+2"
        onActivated: root.choose("topics")
    }

    Shortcut {
        sequence: "Ctrl+3"
        onActivated: root.choose("team")
    }

    Shortcut {
        sequence: "Ctrl+4"
        onActivated: root.choose("settings")
    }

    Shortcut {
        sequences: ["F1", "Ctrl+/"]
        onActivated: root.shortcutsRequested()
    }
}
