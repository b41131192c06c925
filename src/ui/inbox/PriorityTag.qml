import Pingwell

/** A priority by name. */
Tag {
    id: root

    /** The raw word. */
    required property string priority

    text: root.priority.charAt(0).toUpperCase() + root.priority.substring(1)
    ink: Theme.priorityText(root.priority)
    color: Theme.priorityFill(root.priority)
}
