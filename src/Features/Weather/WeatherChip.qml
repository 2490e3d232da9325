import QtQuick
import Orvelle

// One figure beside its symbol.
Rectangle {
    id: root

    required property WeatherExpandedBinding view
    required property var entry

    objectName: "chip." + entry.label.text
    width: content.width + 2 * view.chipHorizontalPadding
    height: content.height + 2 * view.chipVerticalPadding
    radius: view.chipRadius
    color: view.chipFill

    Row {
        id: content
        anchors.centerIn: parent
        spacing: root.view.chipContentSpacing

        PanelSymbol {
            content: root.entry.icon
            anchors.verticalCenter: parent.verticalCenter
        }
        Column {
            PanelText {
                objectName: "value"
                content: root.entry.value
                width: Math.min(implicitWidth, 120)
            }
            PanelText {
                content: root.entry.label
            }
        }
    }
}
