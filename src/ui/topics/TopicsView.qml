pragma ComponentBehavior: Bound

import QtQuick
import Pingwell

/** The topics section of the main screen. */
Item {
    id: root

    required property AppStore store

    TopicListModel {
        id: topics

        store: root.store
    }

    Column {
        id: top

        x: Theme.gap5
        y: Theme.gap5
        width: root.width - 2 * x
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

    PlainText {
        objectName: "topics.empty"
        anchors.top: top.bottom
        anchors.topMargin: Theme.gap5
        x: Theme.gap5
        width: root.width - 2 * x
        visible: topics.count === 0
        text: "No topics yet. Agents create them by tagging alerts, or add one above."
        color: Theme.textSecondary
        wrapMode: Text.Wrap
    }

    TopicList {
        anchors.top: top.bottom
        anchors.topMargin: Theme.gap3
        anchors.bottom: parent.bottom
        width: root.width
        store: root.store
        topics: topics
    }
}
