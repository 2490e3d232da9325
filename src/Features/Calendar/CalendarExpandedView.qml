import QtQuick
import Orvelle

// What is on now and what comes, or that nothing does.
Item {
    id: root

    readonly property alias binding: view

    CalendarExpandedBinding {
        id: view
    }
    Loader {
        anchors.fill: parent
        anchors.margins: view.emptyPadding
        active: !!view.noEvents
        sourceComponent: Item {
            ContextMenu {
                anchors.fill: parent
                menu: () => view.emptyMenu()
            }
            FilePlaceholder {
                anchors.fill: parent
                placeholder: view.noEvents
            }
        }
    }
    ListView {
        objectName: "events"
        anchors.fill: parent
        visible: !view.noEvents
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        topMargin: view.listPadding
        bottomMargin: view.listPadding
        spacing: view.itemSpacing
        model: view.items
        delegate: Loader {
            id: cell

            required property var entry

            x: view.listPadding
            width: ListView.view.width - 2 * x
            sourceComponent: entry.isHeader ? header : row

            Component {
                id: header

                PanelText {
                    objectName: "section." + cell.entry.title.text
                    content: cell.entry.title
                    padding: view.headerPadding
                }
            }
            Component {
                id: row

                CalendarEventRow {
                    view: root.binding
                    event: cell.entry
                }
            }
        }
    }
}
