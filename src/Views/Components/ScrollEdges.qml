import QtQuick
import Orvelle

// Lies over the view of something that scrolls, and takes the wheel for it.
WheelArea {
    id: root

    required property Flickable list
    property real pitch: 0 // of the rows, where only whole ones are to be shown
    readonly property real first: list.originY - list.topMargin
    readonly property real last: Math.max(first, list.originY + list.contentHeight
                                          + list.bottomMargin - list.height)
    // Where the list is, or is on its way to.
    readonly property real goal: slide.running ? slide.to : list.contentY
    readonly property real notch: 120

    function clamped(y) {
        return Math.max(first, Math.min(last, y))
    }
    function whole(y) {
        return pitch > 0 ? first + Math.round((y - first) / pitch) * pitch : y
    }
    function slideTo(y) {
        slide.stop()
        slide.from = list.contentY
        slide.to = clamped(y)
        slide.start()
    }

    objectName: "scrollEdges"
    parent: list
    anchors.fill: parent
    z: 1
    canScrollUp: goal > first + 0.5
    canScrollDown: goal < last - 0.5
    onScrolled: units => {
        const isTurn = units % notch === 0
        const y = goal - units * (isTurn && pitch > 0 ? pitch : 60) / notch
        if (isTurn) {
            slideTo(whole(y))
            return
        }
        slide.stop()
        list.contentY = clamped(y)
        if (pitch > 0)
            rest.restart()
    }

    NumberAnimation {
        id: slide
        target: root.list
        property: "contentY"
        duration: 120
        easing.type: Easing.OutCubic
    }
    // Fingers have come to rest, perhaps amid a row.
    Timer {
        id: rest
        interval: 250
        onTriggered: root.slideTo(root.whole(root.list.contentY))
    }
    Connections {
        target: root.list
        ignoreUnknownSignals: true
        function onMovementStarted() {
            slide.stop()
        }
        function onCurrentIndexChanged() {
            slide.stop()
        }
    }
}
