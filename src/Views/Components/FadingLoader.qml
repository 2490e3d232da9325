import QtQuick
import Orvelle

// Loads a part of the notch while it is shown, and keeps it, at the size that it had, until it has
// faded away.
Item {
    id: root

    property var part // whether it is shown, and its size
    property url source
    property var properties: ({})
    property real response
    property real dampingFraction
    readonly property alias item: loader.item

    width: part.size.width
    height: part.size.height
    opacity: presence.value
    enabled: part.isShown

    SpringValue {
        id: presence
        target: root.part.isShown ? 1 : 0
        response: root.response
        dampingFraction: root.dampingFraction
        restDistance: 0.002
        onValueChanged: root.follow()
    }
    Loader {
        id: loader
        anchors.fill: parent
        focus: root.part.isShown
    }

    // What cannot be seen yet is not made yet: the first frame of the growing shape does not wait
    // for its content.
    function follow() {
        if (presence.value > 0 && loader.status === Loader.Null)
            loader.setSource(source, properties)
        else if (presence.value <= 0 && !part.isShown)
            loader.source = ""
    }
    onPartChanged: follow()
    Component.onCompleted: follow()
}
