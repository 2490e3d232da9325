import QtQuick
import Orvelle

// Loads a part of the notch while it is shown, and keeps it, at the size that it had, until it has
// faded away.
Item {
    id: root

    property bool shown
    property url source
    property var properties: ({})
    property size settledSize
    property real response
    property real dampingFraction
    readonly property alias item: loader.item

    opacity: presence.value
    enabled: shown

    SpringValue {
        id: presence
        target: root.shown ? 1 : 0
        response: root.response
        dampingFraction: root.dampingFraction
        restDistance: 0.002
        onValueChanged: root.follow()
    }
    Binding {
        target: root
        property: "width"
        value: root.settledSize.width
        when: root.shown
        restoreMode: Binding.RestoreNone
    }
    Binding {
        target: root
        property: "height"
        value: root.settledSize.height
        when: root.shown
        restoreMode: Binding.RestoreNone
    }
    Loader {
        id: loader
        anchors.fill: parent
        focus: root.shown
    }

    // What cannot be seen yet is not made yet: the first frame of the growing shape does not wait
    // for its content.
    function follow() {
        if (presence.value > 0 && loader.status === Loader.Null)
            loader.setSource(source, properties)
        else if (presence.value <= 0 && !shown)
            loader.source = ""
    }
    onShownChanged: follow()
    Component.onCompleted: follow()
}
