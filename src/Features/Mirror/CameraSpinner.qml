import QtQuick
import Orvelle

// Eight spokes of which one after the other is bright.
Item {
    id: root

    property bool running
    property int bright: 0

    objectName: "cameraSpinner"
    implicitWidth: 18
    implicitHeight: 18

    Repeater {
        model: 8

        Rectangle {
            required property int index

            x: root.width / 2 - 1
            width: 2
            height: 5
            radius: 1
            color: Style.textColor
            opacity: 1 - 0.1 * ((root.bright - index + 8) % 8)
            transform: Rotation {
                origin.x: 1
                origin.y: root.height / 2
                angle: index * 45
            }
        }
    }
    Timer {
        interval: 100
        repeat: true
        running: root.running
        onTriggered: root.bright = (root.bright + 1) % 8
    }
}
