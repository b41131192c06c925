import QtQuick
import Pingwell

/** The answer that was given. */
SymbolLabel {
    required property string answer

    symbolName: "checkmark.circle.fill"
    text: "You replied “" + answer + "”"
    color: Theme.answered
    textSize: Theme.sizeTitle
    weight: Font.Medium
    maximumLines: 10000
}
