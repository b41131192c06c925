import Pingwell

/** What a viewer sees where others answer. */
SymbolLabel {
    symbolName: "eye"
    text: "Viewers can't reply to asks"
}
