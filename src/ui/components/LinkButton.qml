import QtQuick
import QtQuick.Templates as T
import Pingwell

/** A button drawn as a link. */
T.AbstractButton {
    id: root

    required property string label
    property real textSize: Theme.sizeBody

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    topPadding: 2
    bottomPadding: 2
    focusPolicy: Qt.TabFocus
    hoverEnabled: true
    opacity: enabled ? 1 : Theme.disabledOpacity
    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()
    Accessible.role: Accessible.Button
    Accessible.name: root.label

    contentItem: PlainText {
        text: root.label
        size: root.textSize
        color: Theme.accent
        font.underline: root.hovered || root.down
        Accessible.ignored: true
    }

    background: Item {
        FocusRing {
            target: parent
            radius: Theme.radiusSmall
            shown: root.visualFocus
        }
    }
}
