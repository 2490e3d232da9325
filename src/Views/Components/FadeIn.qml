import QtQuick
import Orvelle

// Lets its content rise into place when it appears.
Item {
    id: root

    property real delay: 0
    default property alias content: holder.data

    SpringValue {
        id: presence
        response: 0.35
        dampingFraction: 1
        delay: root.delay
        restDistance: 0.002
    }
    Item {
        id: holder
        objectName: "fading"
        width: root.width
        height: root.height
        y: 5 * (1 - presence.value)
        opacity: presence.value
    }
    Component.onCompleted: presence.target = 1
}
