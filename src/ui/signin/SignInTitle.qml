import QtQuick
import Pingwell

/** The head of the sign-in card. */
Column {
    id: root

    spacing: Theme.gap2

    AppGlyph {
        anchors.horizontalCenter: parent.horizontalCenter
        size: 56
    }

    PlainText {
        objectName: "signin.title"
        width: root.width
        topPadding: Theme.gap2
        horizontalAlignment: Text.AlignHCenter
        text: "Welcome to Pingwell"
        size: Theme.sizeWelcome
        font.weight: Font.DemiBold
        Accessible.role: Accessible.Heading
    }

    PlainText {
        width: root.width
        // Two lines of about the same length instead of one and a word.
        leftPadding: Theme.gap5
        rightPadding: Theme.gap5
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        text: "Get pinged when your agents finish, fail or need a decision."
        size: Theme.sizeTitle
        color: Theme.textSecondary
    }
}
