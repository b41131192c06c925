import QtQuick
import QtQuick.Templates as T
import Pingwell

/** A menu over the window. */
T.Menu {
    id: root

    implicitWidth: Math.max(implicitContentWidth + leftPadding + rightPadding, 160)
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    padding: Theme.gap1
    margins: Theme.gap2
    overlap: 0

    contentItem: ListView {
        implicitHeight: contentHeight
        implicitWidth: contentItem.childrenRect.width
        model: root.contentModel
        interactive: contentHeight > height
        clip: interactive
        currentIndex: root.currentIndex
        boundsBehavior: Flickable.StopAtBounds
        T.ScrollBar.vertical: SlimScrollBar {}
    }

    background: Rectangle {
        color: Theme.raised
        radius: Theme.radius + 2
        border.width: 1
        border.color: Theme.controlBorder
    }

    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Theme.durationShort }
    }
    exit: Transition {
        NumberAnimation { property: "opacity"; from: 1; to: 0; duration: Theme.durationShort }
    }
}
