import QtQuick
import Pingwell

/** The choice of the server: the managed one, or the person's own by its address. */
Column {
    id: root

    required property AppStore store
    required property string idPrefix
    readonly property bool selfHosted: root.store.server === "selfHosted"

    spacing: Theme.gap2

    ServerCard {
        id: cloud

        objectName: root.idPrefix + ".cloud"
        width: root.width
        symbolName: "cloud.fill"
        title: "Pingwell Cloud"
        subtitle: "Managed by us · " + ServerAddress.cloudHost
        selected: !root.selfHosted
        onChosen: root.store.server = "cloud"
        Keys.onDownPressed: own.chooseByKey()
        Keys.onRightPressed: own.chooseByKey()
    }

    ServerCard {
        id: own

        objectName: root.idPrefix + ".selfHosted"
        width: root.width
        symbolName: "server.rack"
        title: "Self-hosted"
        subtitle: "Point the app at your own server"
        selected: root.selfHosted
        onChosen: root.store.server = "selfHosted"
        Keys.onUpPressed: cloud.chooseByKey()
        Keys.onLeftPressed: cloud.chooseByKey()
    }

    Column {
        width: root.width
        visible: root.selfHosted
        topPadding: Theme.gap1
        spacing: Theme.gap1

        SectionLabel {
            text: "Server address"
        }

        PlainTextField {
            id: address

            objectName: root.idPrefix + ".selfHosted.url"
            width: parent.width
            implicitHeight: 32
            label: "Server address"
            hint: "https://alerts.example.com"
            textSize: Theme.sizeTitle
            inputMethodHints: Qt.ImhUrlCharactersOnly | Qt.ImhNoPredictiveText | Qt.ImhNoAutoUppercase
            text: root.store.selfHostedURL
            onTextEdited: root.store.selfHostedURL = text
        }

        PlainText {
            objectName: root.idPrefix + ".selfHosted.error"
            width: parent.width
            visible: address.length > 0 && !ServerAddress.isUsable(address.text)
            text: "Use an http:// or https:// address."
            size: Theme.sizeSmall
            color: Theme.danger
            wrapMode: Text.Wrap
        }

        SymbolLabel {
            objectName: root.idPrefix + ".selfHosted.warning"
            width: parent.width
            visible: ServerAddress.isOpen(address.text)
            symbolName: "exclamationmark.triangle.fill"
            symbolSize: 12
            text: "This address isn't encrypted. Others on the network can read your alerts and answer in your name. "
                + "Use https:// if your server offers it."
            color: Theme.timedOut
        }
    }
}
