import QtQuick
import Orvelle

// The time in large thin figures over the phase.
Column {
    id: root

    property PomodoroExpandedBinding view

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
}
