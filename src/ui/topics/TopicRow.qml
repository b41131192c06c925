import QtQuick
import Pingwell

/** One topic and what can be done with it. */
Item {
    id: root

    required property AppStore store
    required property TopicListModel topics
    required property topicRow topic
    /** Free at both ends. */
    required property int margin
    required property bool isCurrent
    required property bool isFirst
    readonly property int stops: root.isCurrent ? Qt.TabFocus : Qt.NoFocus

    objectName: "topic." + root.topic.id
    implicitHeight: 56
    activeFocusOnTab: root.isCurrent
    Keys.forwardTo: [menuArea]
    Accessible.role: Accessible.ListItem
    Accessible.name: root.topic.name + ", " + root.topic.summary
    Accessible.description: root.topic.muted ? "muted" : ""

    MenuArea {
        id: menuArea

        anchors.fill: parent
        onMenuRequested: more.clicked()
        onMenuRequestedAt: (x, y) => more.openAt(menuArea, x, y)
    }

    Divider {
        x: root.margin
        width: parent.width - 2 * x
        visible: !root.isFirst
    }

    Rectangle {
        anchors.fill: parent
        anchors.margins: 4
        anchors.leftMargin: root.margin - Theme.gap2
        anchors.rightMargin: root.margin - Theme.gap2
        visible: root.activeFocus
        color: "transparent"
        radius: Theme.radius
        border.width: 2
        border.color: Theme.focusRing
    }

    TopicLabel {
        anchors.left: parent.left
        anchors.leftMargin: root.margin
        anchors.right: controls.left
        anchors.rightMargin: Theme.gap4
        anchors.verticalCenter: parent.verticalCenter
        idPrefix: root.objectName
        topic: root.topic
    }

    Row {
        id: controls

        anchors.right: parent.right
        anchors.rightMargin: root.margin
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.gap4

        Row {
            anchors.verticalCenter: parent.verticalCenter
            spacing: 6

            PlainText {
                anchors.verticalCenter: parent.verticalCenter
                text: "Min priority"
                size: Theme.sizeSmall
                color: Theme.textSecondary
                Accessible.ignored: true
            }

            Picker {
                objectName: root.objectName + ".minPriority"
                width: 92
                focusPolicy: root.stops
                label: "Min priority"
                // The rows outlive the model by a moment when the section is left.
                values: root.topics?.priorities ?? []
                labels: root.topics?.priorityLabels ?? []
                current: root.topic.minPriority
                onChosen: value => root.topics.setMinPriority(root.topic.id, value)
            }
        }

        ToggleSwitch {
            objectName: root.objectName + ".mute"
            anchors.verticalCenter: parent.verticalCenter
            focusPolicy: root.stops
            label: "Mute"
            on: root.topic.muted
            onToggleRequested: on => root.store.setTopicMuted(root.topic.id, on)
        }

        MoreMenu {
            id: more

            objectName: root.objectName + ".menu"
            anchors.verticalCenter: parent.verticalCenter
            focusPolicy: root.stops
            label: "Topic actions"

            PopupMenuItem {
                objectName: root.objectName + ".quietHours"
                isChoice: true
                label: "Respect quiet hours"
                chosen: root.topic.quietHours
                symbolName: chosen ? "checkmark" : ""
                onTriggered: root.store.setTopicQuietHours(root.topic.id, !root.topic.quietHours)
            }

            PopupMenuItem {
                objectName: root.objectName + ".delete"
                label: "Delete topic"
                symbolName: "trash"
                destructive: true
                onTriggered: root.store.deleteTopic(root.topic.id)
            }
        }
    }
}
