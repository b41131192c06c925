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

    Rectangle {
        anchors.centerIn: parent
        width: 380
        height: content.height + 2 * Theme.gap7
        radius: Theme.radiusPanel
        color: Theme.card
        border.width: 1
        border.color: Theme.border
        Accessible.ignored: true

        Column {
            id: content

            x: Theme.gap7
            y: Theme.gap7
            width: parent.width - 2 * Theme.gap7
            spacing: 22

            SignInTitle {
                width: parent.width
            }

            Column {
                width: parent.width
                spacing: 10

                ProviderButton {
                    objectName: "signin.google"
                    width: parent.width
                    visible: Array.from(root.store.availableProviders).includes("google")
                    enabled: !root.store.isSigningIn
                    provider: "Google"
                    logo: "GoogleLogo"
                    onClicked: root.store.signIn("google")
                }

                ProviderButton {
                    objectName: "signin.github"
                    width: parent.width
                    visible: Array.from(root.store.availableProviders).includes("github")
                    enabled: !root.store.isSigningIn
                    provider: "GitHub"
                    logo: "GitHubLogo"
                    onClicked: root.store.signIn("github")
                }
            }

            Row {
                objectName: "signin.progress"
                anchors.horizontalCenter: parent.horizontalCenter
                visible: root.store.isSigningIn
                spacing: Theme.gap2
                Accessible.role: Accessible.StaticText
                Accessible.name: progress.text

                Spinner {
                    anchors.verticalCenter: parent.verticalCenter
                    size: 16
                }

                PlainText {
                    id: progress

                    anchors.verticalCenter: parent.verticalCenter
                    text: "Finish signing in in the window that opened…"
                    size: Theme.sizeNote
                    color: Theme.textSecondary
                    Accessible.ignored: true
                }
            }

            SymbolLabel {
                objectName: "signin.error"
                width: parent.width
                visible: root.store.signInError.length > 0
                symbolName: "exclamationmark.triangle.fill"
                text: root.store.signInError
                textSize: Theme.sizeBody
                color: Theme.danger
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
}
