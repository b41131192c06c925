import QtQuick
import Pingwell

/** Where a new topic is named. */
Column {
    id: root

    required property TopicListModel topics
    readonly property string resultingName: root.topics.nameFor(name.text)
    readonly property string typed: name.text.trim()
    // Without a workspace there is nothing to add it to, and what was typed would be lost.
    readonly property bool canAdd: root.resultingName.length > 0 && root.topics.store.hasWorkspaces

    signal created(name: string)

    function add() {
        if (!root.canAdd)
            return
        root.created(name.text)
        name.clear()
    }

    spacing: Theme.gap1

    PlainTextField {
        id: name

        objectName: "topics.new.name"
        width: root.width - add.width - Theme.gap2
        label: "New topic"
        hint: "new-topic"
        onAccepted: root.add()

        PlainButton {
            id: add

            objectName: "topics.new.add"
            anchors.left: parent.right
            anchors.leftMargin: Theme.gap2
            label: "Add topic"
            prominent: true
            enabled: root.canAdd
            onClicked: root.add()
        }
    }

    PlainText {
        objectName: "topics.new.hint"
        x: Theme.gap2
        width: root.width - x
        visible: root.typed !== root.resultingName
        text: root.resultingName.length > 0 ? "It will be called “" + root.resultingName + "”."
                                            : "A name needs a letter from a to z or a digit."
        size: Theme.sizeNote
        color: Theme.textSecondary
        wrapMode: Text.Wrap
    }
}
