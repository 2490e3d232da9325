import QtQuick
import Orvelle

// A dial whose hand goes round once in a phase.
Item {
    id: root

    property PomodoroExpandedBinding view
    property real progress: view.progress

    width: view.timerSize
    height: view.timerSize

    Behavior on progress {
        NumberAnimation { duration: root.view.progressDuration * 1000 }
    }

    Rectangle {
        objectName: "dial"
        anchors.fill: parent
        radius: width / 2
        color: "transparent"
        border.width: root.view.dialWidth
        border.color: Qt.alpha(root.view.phaseColor, root.view.dialOpacity)
    }
    Repeater {
        model: root.view.ticks

        Item {
            required property var modelData

            anchors.fill: parent
            rotation: modelData.angle

            Rectangle {
                objectName: "tick"
                width: root.view.tickWidth
                height: parent.modelData.length
                x: (parent.width - width) / 2
                y: root.view.tickInset - height / 2
                color: root.view.tickColor
                antialiasing: true
            }
        }
    }
    PanelText {
        objectName: "time"
        content: root.view.time
        anchors.centerIn: parent
        anchors.verticalCenterOffset: root.view.analogTimeOffset
    }
    Item {
        anchors.fill: parent
        rotation: 360 * root.progress

        Rectangle {
            objectName: "hand"
            width: root.view.handWidth
            height: root.height / 2 - root.view.handInset
            x: (parent.width - width) / 2
            y: parent.height / 2 - height
            radius: width / 2
            color: root.view.phaseColor
            antialiasing: true
        }
    }
    Rectangle {
        width: root.view.hubSize
        height: root.view.hubSize
        radius: width / 2
        anchors.centerIn: parent
        color: root.view.phaseColor
    }
}
