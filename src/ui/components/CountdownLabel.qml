import QtQuick
import Pingwell

/** How long an ask can still be answered; more urgent in the last five minutes. */
Row {
    id: root

    /** Seconds; infinite without a deadline. */
    required property real remaining
    property real size: Theme.sizeMeta
    readonly property bool isUrgent: root.remaining < 300
    readonly property string text: "Expires in " + TimeText.countdownText(root.remaining)
    readonly property string symbolName: root.isUrgent ? "timer" : "clock"
    readonly property color ink: root.isUrgent ? Theme.timedOut : Theme.textSecondary

    spacing: 3
    Accessible.role: Accessible.StaticText
    Accessible.name: root.text

    Symbol {
        anchors.verticalCenter: parent.verticalCenter
        name: root.symbolName
        size: 12
        color: root.ink
    }

    PlainText {
        anchors.verticalCenter: parent.verticalCenter
        text: root.text
        size: root.size
        color: root.ink
        font.weight: root.isUrgent ? Font.Medium : Font.Normal
        Accessible.ignored: true
    }
}
