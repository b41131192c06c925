import QtQuick
import Pingwell

/** One of today's alerts: how old, what, and what became of it. */
Pressable {
    id: root

    required property alertRow alert
    required property double now
    readonly property string identifier: "popover.alert." + root.alert.id
    readonly property string age: TimeText.shortAge(root.alert.at, root.now)
    readonly property string line: root.alert.app + " · " + (root.alert.state === "answered" ? "✓ " + root.alert.answer
        : root.alert.state === "timedOut" ? "TIMED OUT" : root.alert.state === "gone" ? "Deleted" : root.alert.summary)

    objectName: root.identifier
    implicitHeight: content.implicitHeight + topPadding + bottomPadding
    enabled: root.alert.state !== "gone"
    meaning: root.alert.id
    leftPadding: Theme.gap1
    rightPadding: Theme.gap1
    topPadding: 5
    bottomPadding: 5
    Accessible.name: root.age + ", " + root.alert.title + ", " + root.line
    Accessible.description: root.alert.read ? "read" : "unread"

    background: PressFill {
        control: root
    }

    FontMetrics {
        id: metrics

        font: age.font
    }

    Item {
        id: content

        x: root.leftPadding
        y: root.topPadding
        width: root.availableWidth
        implicitHeight: words.height

        PlainText {
            id: age

            width: Math.max(22, Math.ceil(metrics.advanceWidth("59m")))
            anchors.baseline: words.top
            anchors.baselineOffset: title.baselineOffset
            text: root.age
            size: Theme.sizeAge
            color: Theme.textTertiary
            elide: Text.ElideNone
            Accessible.ignored: true
        }

        Column {
            id: words

            x: age.width + Theme.gap2
            width: parent.width - x
            spacing: 1

            PlainText {
                id: title

                width: parent.width
                text: root.alert.title
                font.weight: root.alert.read ? Font.Normal : Font.DemiBold
                wrapMode: Text.Wrap
                maximumLineCount: 2
                Accessible.ignored: true
            }

            PlainText {
                objectName: root.alert.state === "timedOut" ? root.identifier + ".timedOut" : ""
                width: parent.width
                text: root.line
                size: Theme.sizeMeta
                color: root.alert.state === "answered" ? Theme.answered
                     : root.alert.state === "timedOut" ? Theme.timedOut : Theme.textSecondary
                Accessible.ignored: root.alert.state !== "timedOut"
            }
        }
    }
}
