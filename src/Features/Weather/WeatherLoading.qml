import QtQuick
import Orvelle

// The first fetch, with nothing to show yet.
Item {
    id: root

    required property WeatherExpandedBinding view

    Column {
        anchors.centerIn: parent
        spacing: root.view.loadingSpacing

        ProgressSpinner {
            objectName: "weatherSpinner"
            spinner: root.view.loadingSpinner
            anchors.horizontalCenter: parent.horizontalCenter
        }
        PanelText {
            objectName: "loadingText"
            content: root.view.loadingText
            anchors.horizontalCenter: parent.horizontalCenter
        }
    }
}
