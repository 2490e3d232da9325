import QtQuick
import Orvelle

// One figure of the machine on its card.
GlassBackground {
    id: root

    property var metric

    objectName: "metric." + metric.label.text
    card: metric.card
    implicitHeight: figures.height + 2 * metric.padding

    Row {
        x: root.metric.padding
        anchors.verticalCenter: parent.verticalCenter
        spacing: root.metric.spacing

        Item {
            width: root.metric.symbolWidth
            height: figures.height

            PanelSymbol {
                anchors.centerIn: parent
                content: root.metric.symbol
            }
        }
        Column {
            id: figures

            PanelText {
                content: root.metric.label
            }
            PanelText {
                objectName: "value"
                content: root.metric.value
            }
        }
    }
}
