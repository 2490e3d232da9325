import QtQuick
import Orvelle

// How far the track is, for display: a bar over position and duration.
Column {
    id: root

    property var bar
    property var elapsed
    property var duration

    Rectangle {
        width: parent.width
        height: root.bar.height
        radius: height / 2
        color: root.bar.trackColor
        Accessible.role: Accessible.ProgressBar
        Accessible.name: root.elapsed.text

        Rectangle {
            objectName: "progressFill"
            width: root.bar.fillWidth(parent.width)
            height: parent.height
            radius: height / 2
            color: root.bar.fillColor

            Behavior on width {
                NumberAnimation {
                    duration: root.bar.changeDuration
                }
            }
        }
    }
    Item {
        width: parent.width
        height: position.implicitHeight

        PanelText {
            id: position
            objectName: "elapsed"
            content: root.elapsed
        }
        PanelText {
            objectName: "duration"
            anchors.right: parent.right
            content: root.duration
        }
    }
}
