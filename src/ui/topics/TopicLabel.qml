import QtQuick
import Pingwell

/** What a topic is called, how many alerts it has, and whether it is muted. */
Item {
    id: root

    required property topicRow topic
    required property string idPrefix

    implicitHeight: words.height

    Symbol {
        id: symbol

        anchors.verticalCenter: parent.verticalCenter
        name: "number"
    }

    Column {
        id: words

        x: symbol.width + Theme.gap3
        width: parent.width - x
        spacing: 2

        Row {
            width: parent.width
            spacing: Theme.gap2

            PlainText {
                width: Math.min(implicitWidth, parent.width - (muted.visible ? muted.width + parent.spacing : 0))
                text: root.topic.name
                size: Theme.sizeTitle
                font.weight: Font.Medium
                color: root.topic.muted ? Theme.textSecondary : Theme.textPrimary
                Accessible.ignored: true
            }

            Badge {
                id: muted

                objectName: root.idPrefix + ".mutedBadge"
                anchors.verticalCenter: parent.verticalCenter
                visible: root.topic.muted
                text: "Muted"
                tint: Theme.quietFill
                ink: Theme.textSecondary
            }
        }

        PlainText {
            objectName: root.idPrefix + ".count"
            width: parent.width
            text: root.topic.summary
            size: Theme.sizeSmall
            color: Theme.textSecondary
        }
    }
}
