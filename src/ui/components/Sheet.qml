pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Pingwell

/** A question over its window, open while `wanted`. Its `content` is made anew each time. */
T.Popup {
    id: root

    required property bool wanted
    required property Component content

    parent: T.Overlay.overlay
    // There is nothing to lie over while the window is being made.
    visible: root.wanted && T.Overlay.overlay !== null
    anchors.centerIn: parent
    implicitWidth: 360
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    padding: Theme.gap5
    modal: true
    focus: true
    closePolicy: T.Popup.CloseOnEscape

    FocusReturn {
        popup: root
    }

    T.Overlay.modal: Rectangle {
        color: Theme.scrim
    }

    background: Rectangle {
        color: Theme.raised
        radius: Theme.radiusPanel
        border.width: 1
        border.color: Theme.controlBorder
    }

    contentItem: Item {
        implicitHeight: childrenRect.height

        When {
            condition: root.visible
            delegate: root.content
        }
    }
}
