import QtQuick
import Orvelle

// Widgets of one zone of the hover bar, with a separator between each two if there is one. Where
// the available width does not do, the titles are cut, the longest first; then the last widgets
// give up their texts, and at last themselves.
Row {
    id: root

    property alias model: widgets.model
    readonly property alias count: widgets.count
    property Component separator
    property real separatorWidth
    property real available
    signal picked(string panel)
    signal playPause

    readonly property var fit: {
        const parts = []
        for (let index = 0; index < widgets.count; ++index) {
            const cell = widgets.itemAt(index)
            if (cell)
                parts.push({ fixed: cell.fixedWidth, texts: cell.textWidths,
                             title: cell.titleWidth })
        }
        return Style.fittedRow(parts, spacing + (separator ? separatorWidth + spacing : 0),
                               available)
    }

    Repeater {
        id: widgets

        Row {
            id: cell

            required property var entry
            required property int index
            readonly property real titleWidth: widget.titleWidth
            readonly property var textWidths: widget.textWidths
            readonly property real fixedWidth: textWidths.reduce(
                (rest, width) => rest - width, widget.naturalWidth - titleWidth)
            readonly property int keptTexts: root.fit.texts[index] ?? textWidths.length
            readonly property bool isLast: !(root.fit.texts[index + 1] >= 0)

            objectName: "cell"
            visible: keptTexts >= 0
            spacing: root.spacing
            anchors.verticalCenter: parent.verticalCenter

            HoverWidget {
                id: widget
                widget: cell.entry
                keptTexts: cell.keptTexts
                width: cell.textWidths.slice(0, Math.max(0, keptTexts)).reduce(
                           (sum, text) => sum + text,
                           cell.fixedWidth + Math.min(titleWidth, root.fit.titleCap))
                anchors.verticalCenter: parent.verticalCenter
                onPicked: root.picked(cell.entry.panel)
                onPlayPause: root.playPause()
            }
            Loader {
                id: line
                active: root.separator && !cell.isLast
                visible: active
                anchors.verticalCenter: parent.verticalCenter
                sourceComponent: root.separator
            }
        }
    }
}
