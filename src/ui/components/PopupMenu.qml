import QtQuick
import QtQuick.Templates as T
import Pingwell

/**
 * A menu over the window, as wide as its longest entry. A menu within it opens beside the entry that stands for it, which
 * has its title and its identifier.
 */
T.Menu {
    id: root

    function widestEntry(): real {
        let widest = 0
        for (let index = 0; index < root.count; ++index)
            widest = Math.max(widest, root.itemAt(index)?.implicitWidth ?? 0)
        return Math.ceil(widest)
    }

    implicitWidth: Math.max(root.widestEntry() + leftPadding + rightPadding, 160)
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    padding: Theme.gap1
    margins: Theme.gap2
    overlap: 0
    cascade: true

    FocusReturn {
        popup: root
    }

    delegate: PopupMenuItem {
        id: entry

        objectName: entry.subMenu?.objectName ?? ""
        label: entry.subMenu?.title ?? ""
        opensMenu: true
        enabled: entry.subMenu?.enabled ?? false
    }

    contentItem: ListView {
        implicitHeight: contentHeight
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
