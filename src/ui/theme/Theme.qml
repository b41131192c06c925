pragma Singleton

import QtQuick
import Pingwell

/**
 * What colours, sizes and durations mean. Views use nothing else, so that light and dark, and the desktop's wish for less
 * motion, are decided here.
 */
QtObject {
    id: theme

    readonly property bool dark: DesktopAppearance.dark
    readonly property RawColors palette: RawColors {}

    // Surfaces, from the back to the front.
    readonly property color sidebar: dark ? palette.grey950 : palette.grey50
    readonly property color window: dark ? palette.grey925 : palette.white
    readonly property color panel: dark ? palette.grey900 : palette.grey25
    readonly property color card: dark ? palette.grey850 : palette.white
    readonly property color field: dark ? palette.grey925 : palette.white
    readonly property color raised: dark ? palette.grey800 : palette.white
    readonly property color selection: dark ? palette.indigo900 : palette.indigo100
    readonly property color scrim: Qt.alpha(palette.black, dark ? 0.5 : 0.25)

    // Lines.
    readonly property color separator: dark ? palette.grey800 : palette.grey150
    readonly property color border: dark ? palette.grey750 : palette.grey150
    readonly property color controlBorder: dark ? palette.grey700 : palette.grey200
    readonly property color focusRing: dark ? palette.indigo300 : palette.indigo600

    // Text.
    readonly property color textPrimary: dark ? palette.grey975 : palette.grey925
    readonly property color textSecondary: dark ? palette.grey350 : palette.grey600
    readonly property color textTertiary: dark ? palette.grey450 : palette.grey500
    readonly property color textReading: Qt.alpha(textPrimary, 0.8)
    readonly property color textOnAccent: palette.white
    readonly property color textSelection: dark ? palette.indigo700 : palette.grey200

    // What happened.
    readonly property color accent: dark ? palette.indigo300 : palette.indigo600
    readonly property color answered: dark ? palette.green400 : palette.green700
    readonly property color timedOut: dark ? palette.amber400 : palette.amber700
    readonly property color danger: dark ? palette.red300 : palette.red700
    readonly property color quietFill: dark ? palette.grey800 : palette.grey100
    readonly property color warningFill: dark ? palette.amber900 : palette.amber100
    readonly property color online: palette.green500
    readonly property color offline: palette.amber500
    readonly property color neutral: textTertiary

    // Controls.
    readonly property color accentFill: dark ? palette.indigo500 : palette.indigo600
    readonly property color accentFillHover: dark ? palette.indigo600 : palette.indigo700
    readonly property color accentFillPressed: dark ? palette.indigo700 : palette.indigo800
    readonly property color controlFill: dark ? palette.grey800 : palette.white
    readonly property color switchOff: dark ? palette.grey600 : palette.grey300
    readonly property color switchKnob: palette.white
    readonly property color hover: Qt.alpha(dark ? palette.white : palette.black, 0.05)
    readonly property color pressed: Qt.alpha(dark ? palette.white : palette.black, 0.10)
    readonly property color scrollThumb: Qt.alpha(dark ? palette.white : palette.black, 0.28)
    readonly property real disabledOpacity: 0.45

    // Type sizes, in pixels of an unscaled screen.
    readonly property real sizeAge: 10
    readonly property real sizeMeta: 10.5
    readonly property real sizeSmall: 11
    readonly property real sizeNote: 11.5
    readonly property real sizeBody: 12
    readonly property real sizeCardTitle: 12.5
    readonly property real sizeTitle: 13
    readonly property real sizeReading: 14
    readonly property real sizeScreenTitle: 20
    readonly property real sizeAlertTitle: 22
    readonly property real sizeWelcome: 24

    // Spacing.
    readonly property int gap1: 4
    readonly property int gap2: 8
    readonly property int gap3: 12
    readonly property int gap4: 16
    readonly property int gap5: 20
    readonly property int gap7: 28
    readonly property int gap10: 40

    // Beyond this a line's beginning and its end are hard to see as one.
    readonly property int contentWidth: 720

    readonly property int radiusSmall: 4
    readonly property int radius: 6
    readonly property int radiusCard: 10
    readonly property int radiusPanel: 12

    readonly property int durationShort: DesktopAppearance.reducedMotion ? 0 : 120
    readonly property int durationTurn: DesktopAppearance.reducedMotion ? 0 : 900

    /** The dot of a priority's raw word. */
    function priorityDot(priority: string): color {
        switch (priority) {
        case "critical": return palette.red500
        case "high": return palette.amber500
        case "normal": return palette.indigo500
        }
        return textTertiary
    }

    /** The letters of a priority's tag. */
    function priorityText(priority: string): color {
        switch (priority) {
        case "critical": return danger
        case "high": return timedOut
        case "normal": return accent
        }
        return textSecondary
    }

    /** What a priority's tag stands on. */
    function priorityFill(priority: string): color {
        switch (priority) {
        case "critical": return dark ? palette.red900 : palette.red100
        case "high": return warningFill
        case "normal": return selection
        }
        return quietFill
    }
}
