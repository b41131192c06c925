import QtQuick

/**
 * A list of rows, of which those in sight are made and no others. Further ones Qt would make piece by piece between frames,
 * and a list that goes away while one of them is half made takes the program down.
 */
ListView {
    cacheBuffer: 0
    // The default, 0, would take the keyboard's focus when the first row arrives.
    currentIndex: -1
    boundsBehavior: Flickable.StopAtBounds
}
