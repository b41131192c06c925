pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Pingwell

/**
 * The topics, in rows. To the keyboard the list is one stop: the arrow keys move within it, and from the row they are
 * at, Tab leads through what can be done with it.
 */
RowList {
    id: root

    required property AppStore store
    required property TopicListModel topics
    required property int margin
    required property int rowWidth

    objectName: "topics.list"
    model: root.topics
    clip: true
    // Once the keyboard was here, the row it was at is the stop.
    activeFocusOnTab: count > 0 && currentIndex < 0
    highlightFollowsCurrentItem: false
    bottomMargin: Theme.gap5
    onActiveFocusChanged: if (activeFocus && currentIndex < 0) currentIndex = 0
    onCurrentItemChanged: if (activeFocus && currentItem) positionViewAtIndex(currentIndex, ListView.Contain)
    Keys.onPressed: event => {
        if (event.key === Qt.Key_Home || event.key === Qt.Key_End) {
            root.currentIndex = event.key === Qt.Key_Home ? 0 : root.count - 1
            event.accepted = true
        }
    }
    Accessible.role: Accessible.List
    Accessible.name: "Topics"

    T.ScrollBar.vertical: SlimScrollBar {}

    delegate: TopicRow {
        required property int index

        width: root.rowWidth
        margin: root.margin
        store: root.store
        topics: root.topics
        isCurrent: root.currentIndex === index
        isFirst: index === 0
    }
}
