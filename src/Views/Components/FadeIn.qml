import QtQuick
import Orvelle

// Lets its content rise into place when it appears.
Item {
    id: root

    property real delay: 0
    default property alias content: holder.data

    SpringValue {
        id: presence
        response: Style.fadeInResponse
        dampingFraction: Style.fadeInDampingFraction
        delay: root.delay
        restDistance: 0.002
    }
    Item {
        id: holder
        objectName: "fading"
        width: root.width
        height: root.height
        y: Style.fadeInOffset(presence.value)
        opacity: Style.fadeInOpacity(presence.value)
    }
    Component.onCompleted: presence.target = 1
}
