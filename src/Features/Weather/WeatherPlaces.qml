import QtQuick
import Orvelle

// Leafs through the places: arrows around one dot for each.
Row {
    id: root

    required property WeatherExpandedBinding view
    readonly property var control: view.locationControl

    spacing: view.spacing

    PanelButton {
        objectName: "previousLocation"
        content: root.control.previous
        name: qsTr("Previous place")
        anchors.verticalCenter: parent.verticalCenter
        onClicked: root.view.showPreviousLocation()
    }
    Row {
        objectName: "locationDots"
        spacing: root.view.dotSpacing
        anchors.verticalCenter: parent.verticalCenter

        Repeater {
            model: root.control.dots

            Rectangle {
                required property color modelData

                width: root.view.dotSize
                height: width
                radius: width / 2
                antialiasing: true
                color: modelData
            }
        }
    }
    PanelButton {
        objectName: "nextLocation"
        content: root.control.next
        name: qsTr("Next place")
        anchors.verticalCenter: parent.verticalCenter
        onClicked: root.view.showNextLocation()
    }
}
