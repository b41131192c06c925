import QtQuick
import Pingwell

/** All there is to signing in: with whom, at which server, and how it goes. */
Rectangle {
    id: root

    required property AppStore store
    readonly property bool offersGoogle: Array.from(root.store.availableProviders).includes("google")
    readonly property bool offersGitHub: Array.from(root.store.availableProviders).includes("github")

    implicitWidth: 380
    implicitHeight: content.height + 2 * Theme.gap7
    radius: Theme.radiusPanel
    color: Theme.card
    border.width: 1
    border.color: Theme.border

    ServerInUse {
        id: inUse

        store: root.store
    }

    Column {
        id: content

        x: Theme.gap7
        y: Theme.gap7
        width: root.width - 2 * Theme.gap7
        spacing: 22

        SignInTitle {
            width: parent.width
        }

        Column {
            width: parent.width
            visible: root.offersGoogle || root.offersGitHub
            spacing: 10

            ProviderButton {
                objectName: "signin.google"
                width: parent.width
                visible: root.offersGoogle
                enabled: !root.store.isSigningIn
                provider: "Google"
                logo: "GoogleLogo"
                onClicked: root.store.signIn("google")
            }

            ProviderButton {
                objectName: "signin.github"
                width: parent.width
                visible: root.offersGitHub
                enabled: !root.store.isSigningIn
                provider: "GitHub"
                logo: "GitHubLogo"
                onClicked: root.store.signIn("github")
            }
        }

        SignInProgress {
            width: parent.width
            visible: root.store.isSigningIn
            store: root.store
        }

        SymbolLabel {
            objectName: "signin.error"
            width: parent.width
            visible: root.store.signInError.length > 0
            symbolName: "exclamationmark.triangle.fill"
            text: ShownText.line(root.store.signInError)
            textSize: Theme.sizeBody
            color: Theme.danger
        }

        Column {
            width: parent.width
            spacing: Theme.gap2

            SectionLabel {
                text: "Server"
            }

            ServerPicker {
                width: parent.width
                store: root.store
                idPrefix: "signin.server"
            }

            SymbolLabel {
                objectName: "signin.server.fixed"
                width: parent.width
                visible: inUse.isFixed
                symbolName: "server.rack"
                text: "Pingwell was started for " + (inUse.host || ServerAddress.cloudHost)
                    + ". It signs in there, whichever server is chosen here."
            }
        }

        PlainText {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            text: "By continuing you agree to the Terms and Privacy Policy."
            size: Theme.sizeSmall
            color: Theme.textTertiary
        }
    }
}
