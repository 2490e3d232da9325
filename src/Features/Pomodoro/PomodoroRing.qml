import QtQuick
import QtQuick.Shapes
import Orvelle

// A ring that closes while the phase passes, around the time.
Item {
    id: root

    property PomodoroExpandedBinding view
    property real progress: view.progress

    width: view.timerSize
    height: view.timerSize

    Behavior on progress {
        NumberAnimation { duration: root.view.progressDuration * 1000 }
    }

    Shape {
        objectName: "ring"
        anchors.fill: parent

        ShapePath {
            strokeColor: root.view.trackColor
            strokeWidth: root.view.ringWidth
            fillColor: "transparent"

            PathAngleArc {
                centerX: root.width / 2
                centerY: root.height / 2
                radiusX: (root.width - root.view.ringWidth) / 2
                radiusY: radiusX
                startAngle: -90
                sweepAngle: 360
            }
        }
        ShapePath {
            strokeColor: root.progress > 0 ? root.view.phaseColor : "transparent"
            strokeWidth: root.view.ringWidth
            fillColor: "transparent"
            capStyle: ShapePath.RoundCap

            PathAngleArc {
                centerX: root.width / 2
                centerY: root.height / 2
                radiusX: (root.width - root.view.ringWidth) / 2
                radiusY: radiusX
                startAngle: -90
                sweepAngle: 360 * root.progress
            }
        }
    }
    Column {
        anchors.centerIn: parent

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
}
