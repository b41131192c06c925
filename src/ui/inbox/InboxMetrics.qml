import QtQuick
import Pingwell

/** Where the lines of an inbox row stand: the same in every row, so that a long list knows where each of its rows is. */
QtObject {
    id: root

    readonly property FontMetrics originFont: FontMetrics {
        font.pointSize: Theme.sizeSmall * 0.75
    }
    readonly property FontMetrics titleFont: FontMetrics {
        font.pointSize: Theme.sizeTitle * 0.75
        font.weight: Font.DemiBold
    }
    readonly property FontMetrics stateFont: FontMetrics {
        font.pointSize: Theme.sizeBody * 0.75
    }

    readonly property int originY: Theme.gap1
    readonly property int titleY: root.originY + Math.ceil(root.originFont.height) + 3
    readonly property int stateY: root.titleY + Math.ceil(root.titleFont.height) + 3
    readonly property int rowHeight: root.stateY + Math.max(Math.ceil(root.stateFont.height), 16) + Theme.gap1
}
