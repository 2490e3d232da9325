import QtQuick
import Orvelle

// Widgets of one zone of the hover bar, with a separator between each two if there is one. Where
// the available width does not do, the titles are cut, the longest first.
Row {
    id: root

    property alias model: widgets.model
    readonly property alias count: widgets.count
    property Component separator
    property real available
    signal picked(string panel)
    signal playPause

    readonly property real titleCap: {
        const titles = []
        let room = available + spacing
        for (let index = 0; index < widgets.count; ++index) {
            const cell = widgets.itemAt(index)
            if (!cell)
                continue
            titles.push(cell.titleWidth)
            room -= cell.naturalWidth - cell.titleWidth + spacing
        }
        return Style.widthCap(titles, room)
    }

    Repeater {
        id: widgets

        Row {
            id: cell

            required property var entry
            required property int index
            readonly property real titleWidth: widget.titleWidth
            readonly property real naturalWidth: widget.naturalWidth
                    + (line.active ? root.spacing + line.width : 0)

            objectName: "cell"
            spacing: root.spacing
            anchors.verticalCenter: parent.verticalCenter

            HoverWidget {
                id: widget
                widget: cell.entry
                width: naturalWidth - Math.max(0, titleWidth - root.titleCap)
                anchors.verticalCenter: parent.verticalCenter
                onPicked: root.picked(cell.entry.panel)
                onPlayPause: root.playPause()
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
