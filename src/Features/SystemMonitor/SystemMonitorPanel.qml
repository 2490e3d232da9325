import QtQuick
import Orvelle

// The machine's load as rows of cells.
Flickable {
    id: root

    contentHeight: Math.max(grid.height, height)
    boundsBehavior: Flickable.StopAtBounds
    clip: contentHeight > height

    ScrollEdges { list: root }
    SystemMonitorPanelBinding {
        id: view
    }
    Item {
        id: grid
        width: root.width
        height: childrenRect.height

        Repeater {
            model: view.cells

            MetricView {
                required property var entry

                metric: entry
                opacity: view.figuresOpacity
                width: (grid.width - view.spacing * (entry.columns - 1)) / entry.columns
                x: entry.column * (width + view.spacing)
                y: entry.row * (height + view.spacing)
            }
        }
    }
    Loader {
        anchors.fill: parent
        active: !!view.placeholder
        sourceComponent: FilePlaceholder {
            placeholder: view.placeholder
        }
    }
}
