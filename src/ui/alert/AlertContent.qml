import QtQuick
import Pingwell

/** One alert in full. */
Column {
    id: root

    required property AppStore store
    required property alertRow alert
    /** What "Show all" shows. */
    required property alertTexts everything
    required property bool canDelete
    /** The keys that answer act on this alert. */
    required property bool takesKeys
    required property bool takesDigits
    property bool showsAll: false
    readonly property alertTexts texts: root.showsAll ? root.everything : root.alert.whole

    signal deleteRequested

    /** Puts the keyboard where what was typed can be copied; false when there is nothing of that kind. */
    function takeFocus(): bool {
        return reply.takeFocus()
    }

    spacing: Theme.gap3

    Item {
        width: root.width
        height: Math.max(tag.height, title.height)

        PriorityTag {
            id: tag

            objectName: "detail.priority"
            y: Math.round((26 - height) / 2)
            priority: root.alert.priority
        }

        PlainSelectableText {
            id: title

            objectName: "detail.title"
            x: tag.width + 10
            width: parent.width - x
            text: root.texts.title
            size: Theme.sizeAlertTitle
            font.weight: Font.DemiBold
            Accessible.role: Accessible.Heading
        }
    }

    PlainSelectableText {
        objectName: "detail.body"
        width: root.width
        visible: text.length > 0
        text: root.texts.body
        size: Theme.sizeReading
        color: Theme.textReading
    }

    LinkButton {
        objectName: "detail.showAll"
        visible: root.alert.whole.isCut && !root.showsAll
        label: "Show all"
        onClicked: root.showsAll = true
    }

    Item {
        objectName: "detail.meta"
        width: root.width
        implicitHeight: app.height
        Accessible.role: Accessible.StaticText
        Accessible.name: app.text + ", " + place.text

        PlainText {
            id: app

            width: Math.min(implicitWidth, root.width * 0.6)
            text: root.alert.app
            size: Theme.sizeTitle
            font.weight: Font.DemiBold
            Accessible.ignored: true
        }

        PlainText {
            id: place

            anchors.baseline: app.baseline
            x: app.width + 6
            width: root.width - x
            text: "#" + root.alert.topic + " · " + TimeText.relativeAge(root.alert.at, root.store.now)
            size: Theme.sizeNote
            color: Theme.textSecondary
            Accessible.ignored: true
        }
    }

    Divider {
        width: root.width
        visible: root.alert.state.length > 0
    }

    AlertReply {
        id: reply

        width: root.width
        visible: root.alert.state.length > 0
        store: root.store
        alert: root.alert
        texts: root.texts
    }

    Divider {
        width: root.width
    }

    AlertActions {
        store: root.store
        alert: root.alert
        canDelete: root.canDelete
        onDeleteRequested: root.deleteRequested()
    }

    AnswerKeys {
        store: root.store
        alert: root.alert
        active: root.takesKeys
        takesDigits: root.takesDigits
    }
}
