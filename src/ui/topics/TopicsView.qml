pragma ComponentBehavior: Bound

import QtQuick
import Pingwell

/** The topics section of the main screen. */
Item {
    id: root

    required property AppStore store
    readonly property int margin: Theme.gap7
    readonly property int contentWidth: Math.min(root.width - 2 * root.margin, Theme.contentWidth)

    TopicListModel {
        id: topics

        store: root.store
    }

    Column {
        id: top

        x: root.margin
        y: Theme.gap5
        width: root.contentWidth
        spacing: Theme.gap4

        ScreenHeader {
            width: parent.width
            title: "Topics"
            detail: "Agents tag every alert with a topic. Mute a topic or raise its minimum priority to cut the noise."
        }

        NewTopicRow {
            width: parent.width
            topics: topics
            onCreated: name => root.store.createTopic(name)
        }
    }

    Column {
        anchors.top: top.bottom
        anchors.topMargin: Theme.gap10
        x: root.margin
        width: root.contentWidth
        visible: topics.count === 0
        spacing: Theme.gap3

        Symbol {
            anchors.horizontalCenter: parent.horizontalCenter
            name: "number"
            size: 32
            color: Theme.textTertiary
        }

        PlainText {
            objectName: "topics.empty"
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: "No topics yet. Agents create them by tagging alerts, or add one above."
            color: Theme.textSecondary
            wrapMode: Text.Wrap
        }
    }

    TopicList {
        anchors.top: top.bottom
        anchors.topMargin: Theme.gap3
        anchors.bottom: parent.bottom
        width: root.width
        store: root.store
        topics: topics
        margin: root.margin
        rowWidth: root.contentWidth + 2 * root.margin
    }
}
