import QtQuick
import QtQuick.Templates as T
import Pingwell

/** Says in words what a control without words does, after the pointer has rested on it. */
T.ToolTip {
    id: root

    required property string help

    x: Math.round((parent.width - width) / 2)
    y: parent.height + Theme.gap1
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    margins: Theme.gap1
    horizontalPadding: Theme.gap2
    verticalPadding: Theme.gap1
    delay: 600
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent | T.Popup.CloseOnReleaseOutsideParent

    contentItem: PlainText {
        text: root.help
        size: Theme.sizeSmall
        Accessible.ignored: true
    }

    background: Rectangle {
        color: Theme.raised
        radius: Theme.radiusSmall
        border.width: 1
        border.color: Theme.controlBorder
    }
}
