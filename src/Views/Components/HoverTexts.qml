import QtQuick
import Orvelle

// An icon and texts in a row, each as wide as it is.
Row {
    id: root

    property var widget
    readonly property real naturalWidth: implicitWidth
    readonly property real titleWidth: 0
    readonly property string summary: widget.texts.map(text => text.text).join(" ")

    spacing: widget.spacing

    Loader {
        active: !!root.widget.icon
        visible: active
        anchors.verticalCenter: parent.verticalCenter
        sourceComponent: PanelSymbol {
            content: root.widget.icon
        }
    }
    Repeater {
        model: root.widget.texts

        PanelText {
            required property var modelData

            objectName: "text"
            content: modelData
            anchors.verticalCenter: parent.verticalCenter
        }
    }
}
