import QtQuick
import Orvelle

// Widgets of one zone of the hover bar, with a separator between each two if there is one. A
// widget that can be cut short takes up whatever the row lacks of the available width.
Row {
    id: root

    property alias model: widgets.model
    readonly property alias count: widgets.count
    property Component separator
    property real available
    signal picked(string panel)

    readonly property real lacking: {
        let needed = -spacing
        for (let index = 0; index < widgets.count; ++index) {
            const cell = widgets.itemAt(index)
            needed += cell ? cell.naturalWidth + spacing : 0
        }
        return Math.max(0, needed - available)
    }

    Repeater {
        id: widgets

        Row {
            id: cell

            required property var entry
            required property int index
            readonly property real naturalWidth: widget.naturalWidth
                    + (line.active ? root.spacing + line.width : 0)

            objectName: "cell"
            spacing: root.spacing
            anchors.verticalCenter: parent.verticalCenter

            HoverWidget {
                id: widget
                widget: cell.entry
                width: naturalWidth - (cell.entry.truncatesTail ? root.lacking : 0)
                anchors.verticalCenter: parent.verticalCenter
                onClicked: root.picked(cell.entry.panel)
            }
            Loader {
                id: line
                active: root.separator && cell.index < widgets.count - 1
                visible: active
                anchors.verticalCenter: parent.verticalCenter
                sourceComponent: root.separator
            }
        }
    }
}
