import QtQuick
import Orvelle

// The time in figures over the phase and a bar.
Column {
    id: root

    property PomodoroExpandedBinding view

    spacing: view.textSpacing

    PanelText {
        objectName: "time"
        content: root.view.time
        anchors.horizontalCenter: parent.horizontalCenter
    }
    PanelText {
        objectName: "phase"
        content: root.view.phaseLabel
        anchors.horizontalCenter: parent.horizontalCenter
    }
    Rectangle {
        id: track
        objectName: "bar"
        width: root.view.barWidth
        height: root.view.barHeight
        radius: height / 2
        color: root.view.trackColor
        anchors.horizontalCenter: parent.horizontalCenter

        Rectangle {
            objectName: "barFill"
            width: root.view.progress > 0 ? Math.max(height, root.view.progress * track.width) : 0
            height: parent.height
            radius: parent.radius
            color: root.view.phaseColor
        }
    }
}
