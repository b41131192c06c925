import QtQuick
import Pingwell

/** A sign-in under way in the browser: for which server, and what to do when no browser came up. */
Column {
    id: root

    required property AppStore store

    spacing: Theme.gap1

    Row {
        objectName: "signin.progress"
        anchors.horizontalCenter: parent.horizontalCenter
        spacing: Theme.gap2
        Accessible.role: Accessible.StaticText
        Accessible.name: words.text

        Spinner {
            anchors.verticalCenter: parent.verticalCenter
            size: 16
        }

        PlainText {
            id: words

            anchors.verticalCenter: parent.verticalCenter
            text: "Finish signing in in the window that opened…"
            size: Theme.sizeNote
            color: Theme.textSecondary
            Accessible.ignored: true
        }
    }

    PlainText {
        objectName: "signin.host"
        width: root.width
        visible: root.store.signInHost.length > 0
        horizontalAlignment: Text.AlignHCenter
        elide: Text.ElideMiddle
        text: root.store.signInHost
        size: Theme.sizeNote
        font.weight: Font.Medium
    }

    Row {
        anchors.horizontalCenter: parent.horizontalCenter
        topPadding: Theme.gap1
        spacing: Theme.gap4

        LinkButton {
            objectName: "signin.cancel"
            label: "Cancel"
            textSize: Theme.sizeNote
            onClicked: root.store.cancelSignIn()
        }

        LinkButton {
            objectName: "signin.copyLink"
            visible: root.store.signInLink.length > 0
            label: "Copy link"
            textSize: Theme.sizeNote
            onClicked: {
                Clipboard.copy(root.store.signInLink)
                root.store.showToast("Link copied.", false)
            }
        }
    }
}
