import QtQuick

/** The raw colours. Only the theme reads them; views use the theme's meanings. */
QtObject {
    readonly property color white: "#ffffff"
    readonly property color black: "#000000"

    // Greys, from light to dark, with a little blue in them.
    readonly property color grey25: "#fafafb"
    readonly property color grey50: "#f4f5f7"
    readonly property color grey100: "#ecedf0"
    readonly property color grey150: "#e3e5e9"
    readonly property color grey200: "#d5d8de"
    readonly property color grey300: "#b9bdc6"
    readonly property color grey350: "#a9adb6"
    readonly property color grey450: "#868a93"
    readonly property color grey500: "#787c85"
    readonly property color grey600: "#565a63"
    readonly property color grey700: "#44474f"
    readonly property color grey750: "#383a41"
    readonly property color grey800: "#2f3137"
    readonly property color grey850: "#28292e"
    readonly property color grey900: "#1f2024"
    readonly property color grey925: "#1b1c1f"
    readonly property color grey950: "#161719"
    readonly property color grey975: "#f0f1f3"

    readonly property color indigo100: "#e5eafb"
    readonly property color indigo300: "#93abff"
    readonly property color indigo500: "#4a6ae0"
    readonly property color indigo600: "#3b5bd6"
    readonly property color indigo700: "#314dba"
    readonly property color indigo800: "#283f99"
    readonly property color indigo900: "#27304f"

    readonly property color green400: "#5ec58b"
    readonly property color green500: "#2f9e5b"
    readonly property color green700: "#1d7444"

    readonly property color amber100: "#fbefd9"
    readonly property color amber400: "#e7ae55"
    readonly property color amber500: "#dd7d0c"
    readonly property color amber700: "#8a5000"
    readonly property color amber900: "#41321c"

    readonly property color red100: "#fce6e4"
    readonly property color red300: "#ff938b"
    readonly property color red500: "#d6403a"
    readonly property color red700: "#b3261e"
    readonly property color red900: "#4a2625"
}
