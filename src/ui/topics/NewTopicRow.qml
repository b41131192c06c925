import QtQuick
import Pingwell

/** Where a new topic is named. */
Column {
    id: root

    required property TopicListModel topics
    readonly property string resultingName: root.topics.nameFor(name.text)
    readonly property string typed: name.text.trim()

    signal created(name: string)

    function add() {
        if (root.resultingName.length === 0)
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
            enabled: root.resultingName.length > 0
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
