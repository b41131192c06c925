import QtQuick

/** Makes its delegate, beside itself, while the condition holds. (This Qt's Loader cannot make bound components.) */
Repeater {
    id: root

    required property bool condition

    model: root.condition ? 1 : 0
}
