import Pingwell

/** A way to sign in. */
PlainButton {
    id: root

    required property string provider
    required property string logo

    implicitHeight: 36
    label: "Continue with " + root.provider
    symbolName: root.logo
    textSize: Theme.sizeTitle
    contentSpacing: Theme.gap2
}
