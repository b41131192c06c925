import QtQuick
import Pingwell

/** Where a person signs in. */
Rectangle {
    id: root

    required property AppStore store

    objectName: "signin"
    color: Theme.sidebar
    Accessible.role: Accessible.Pane
    Accessible.name: "Sign in"
    Component.onCompleted: root.store.refreshProviders()

    ScrollArea {
        anchors.fill: parent
        contentHeight: Math.max(height, card.height + 2 * Theme.gap5)

        SignInCard {
            id: card

            anchors.centerIn: parent
            store: root.store
        }
    }
}
