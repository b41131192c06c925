import QtQuick
import QtQuick.Templates as T
import Pingwell

/**
 * A field that grows with its text, up to `maximumLines`, and scrolls beyond. `hint` shows while it is empty, as plain
 * text.
 */
Item {
    id: root

    required property string label
    property alias area: area
    property alias text: area.text
    property string hint
    property int maximumLines: 4
    property real textSize: Theme.sizeBody
    property string identifier
    property int verticalPadding: 5
    /** Kept free around what scrolls, for the frame. */
    readonly property int frame: 2
    readonly property int oneLineHeight: Math.ceil(metrics.lineSpacing) + 2 * root.verticalPadding
    readonly property int largestHeight: Math.ceil(metrics.lineSpacing * root.maximumLines) + 2 * root.verticalPadding

    /** Return was pressed; with Shift it is a new line. */
    signal submitted

    implicitHeight: Math.min(area.height, root.largestHeight)

    function submit(event: KeyEvent) {
        event.accepted = !(event.modifiers & Qt.ShiftModifier)
        if (event.accepted)
            root.submitted()
    }

    /** Scrolls so that the caret is seen. */
    function followCaret() {
        const caret = area.cursorRectangle
        const lowest = caret.y + area.y + caret.height + root.verticalPadding - root.frame - scroll.height
        scroll.contentY = Math.max(lowest, Math.min(scroll.contentY, caret.y - root.verticalPadding))
    }

    FontMetrics {
        id: metrics

        font: area.font
    }

    FieldFrame {
        anchors.fill: parent
        focused: area.activeFocus
        hovered: hover.hovered
    }

    Flickable {
        id: scroll

        anchors.fill: parent
        anchors.margins: root.frame
        contentHeight: area.height - 2 * root.frame
        boundsBehavior: Flickable.StopAtBounds
        clip: interactive
        interactive: contentHeight > height
        T.ScrollBar.vertical: SlimScrollBar {}

        TextEdit {
            id: area

            objectName: root.identifier
            y: -root.frame
            width: scroll.width
            height: Math.ceil(contentHeight) + 2 * root.verticalPadding
            topPadding: root.verticalPadding
            bottomPadding: root.verticalPadding
            leftPadding: Theme.gap2 - root.frame
            rightPadding: Theme.gap2 - root.frame
            font.pointSize: root.textSize * 0.75
            renderType: Text.NativeRendering
            textFormat: TextEdit.PlainText
            wrapMode: TextEdit.Wrap
            color: Theme.textPrimary
            selectionColor: Theme.textSelection
            selectedTextColor: Theme.textPrimary
            selectByMouse: true
            activeFocusOnTab: true
            onCursorRectangleChanged: root.followCaret()
            Accessible.role: Accessible.EditableText
            Accessible.name: root.label
            Accessible.multiLine: true
            Keys.onTabPressed: area.nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
            Keys.onBacktabPressed: area.nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
            Keys.onReturnPressed: event => root.submit(event)
            Keys.onEnterPressed: event => root.submit(event)
        }
    }

    PlainText {
        x: Theme.gap2
        y: root.verticalPadding
        width: root.width - 2 * Theme.gap2
        visible: area.length === 0 && area.preeditText.length === 0
        text: root.hint
        size: root.textSize
        color: Theme.textTertiary
        Accessible.ignored: true
    }

    HoverHandler {
        id: hover

        cursorShape: Qt.IBeamCursor
    }
}
