import QtQuick
import Orvelle

// A place for one panel, which enters from a side (-1 is leading, 1 is trailing) and leaves to one.
Item {
    id: root

    property real response
    property real dampingFraction
    property bool isLeaving: false
    readonly property alias item: loader.item
    readonly property alias isMoving: offset.running

    function enter(source, side) {
        loader.source = "" // the same source may stand for another panel now
        isLeaving = false // after the panel that was leaving has gone, or it would come back to life
        loader.source = source
        offset.jump(side)
        presence.jump(side === 0 ? 1 : 0)
        offset.target = 0
        presence.target = 1
    }
    function leave(side) {
        isLeaving = true
        offset.target = side
        presence.target = 0
        unloadWhenGone()
    }
    function unloadWhenGone() {
        if (isLeaving && !offset.running)
            loader.source = ""
    }

    SpringValue {
        id: offset
        response: root.response
        dampingFraction: root.dampingFraction
        restDistance: 0.001
        onRunningChanged: root.unloadWhenGone()
    }
    SpringValue {
        id: presence
        response: root.response
        dampingFraction: root.dampingFraction
        restDistance: 0.002
    }
    Loader {
        id: loader
        width: root.width
        height: root.height
        x: offset.value * width
        opacity: presence.value
        enabled: !root.isLeaving
    }
}
