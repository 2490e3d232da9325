import QtQuick
import Orvelle

// Widgets of one zone of the hover bar, with a separator between each two if there is one.
Row {
    id: root

    property alias model: widgets.model
    property Component separator
    signal picked(string panel)

    Repeater {
        id: widgets

        Row {
            id: cell

            required property var entry
            required property int index

            spacing: root.spacing
            anchors.verticalCenter: parent.verticalCenter

            HoverWidget {
                widget: cell.entry
                anchors.verticalCenter: parent.verticalCenter
                onClicked: root.picked(cell.entry.panel)
            }
            Loader {
                active: root.separator && cell.index < widgets.count - 1
                visible: active
                anchors.verticalCenter: parent.verticalCenter
                sourceComponent: root.separator
            }
        }
    }
}
