import QtQuick
import QtQuick.Templates as T
import Pingwell

/**
 * A field that grows with its text, up to `maximumLines`, and scrolls beyond. `hint` shows while it is empty, as plain
 * text.
 */
Flickable {
    id: root

    required property string label
    property alias area: area
    property alias text: area.text
    property string hint
    property int maximumLines: 4
    property real textSize: Theme.sizeBody
    property string identifier

    /** Return was pressed; with Shift it is a new line. */
    signal submitted

    implicitHeight: Math.min(area.implicitHeight,
                             Math.ceil(metrics.lineSpacing * root.maximumLines) + area.topPadding + area.bottomPadding)
    boundsBehavior: Flickable.StopAtBounds
    clip: contentHeight > height
    interactive: contentHeight > height

    function submit(event: KeyEvent) {
        event.accepted = !(event.modifiers & Qt.ShiftModifier)
        if (event.accepted)
            root.submitted()
    }

    FontMetrics {
        id: metrics

        font: area.font
    }

    T.TextArea.flickable: T.TextArea {
        id: area

        objectName: root.identifier
        topPadding: 5
        bottomPadding: 5
        leftPadding: Theme.gap2
        rightPadding: Theme.gap2
        implicitWidth: 120
        implicitHeight: Math.max(Math.ceil(contentHeight), Math.ceil(metrics.lineSpacing)) + topPadding + bottomPadding
        font.pointSize: root.textSize * 0.75
        renderType: Text.NativeRendering
        textFormat: TextEdit.PlainText
        wrapMode: TextEdit.Wrap
        color: Theme.textPrimary
        selectionColor: Theme.textSelection
        selectedTextColor: Theme.textPrimary
        selectByMouse: true
        hoverEnabled: true
        opacity: enabled ? 1 : Theme.disabledOpacity
        Accessible.role: Accessible.EditableText
        Accessible.name: root.label
        Accessible.multiLine: true
        Keys.onTabPressed: area.nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
        Keys.onBacktabPressed: area.nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
        Keys.onReturnPressed: event => root.submit(event)
        Keys.onEnterPressed: event => root.submit(event)

        background: FieldFrame {
            focused: area.activeFocus
            hovered: area.hovered
        }

        PlainText {
            x: area.leftPadding
            y: area.topPadding
            width: area.width - area.leftPadding - area.rightPadding
            visible: area.length === 0 && area.preeditText.length === 0
            text: root.hint
            size: root.textSize
            color: Theme.textTertiary
            Accessible.ignored: true
        }
    }
}
