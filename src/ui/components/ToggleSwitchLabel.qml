import QtQuick
import QtQuick.Templates as T
import Pingwell

/** What a switch shows: its words, and the part that slides at their end. */
Item {
    id: root

    required property T.AbstractButton control
    required property string label
    required property bool on
    required property real textSize
    required property color color

    implicitWidth: Math.ceil(words.implicitWidth) + 6 + track.width

    PlainText {
        id: words

        anchors.verticalCenter: parent.verticalCenter
        width: parent.width - 6 - track.width
        text: root.label
        size: root.textSize
        color: root.color
        Accessible.ignored: true
    }

    SwitchTrack {
        id: track

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        control: root.control
        on: root.on
    }
}
