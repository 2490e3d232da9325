import QtQuick
import Orvelle

// What is on now and what comes, or that nothing does.
FocusScope {
    id: root

    readonly property alias binding: view

    // Of the event that the keyboard is at, or of the first.
    function openMenu() {
        if (!events.visible)
            return nothing.item.openMenu()
        if (events.currentIndex < 0)
            events.step(1)
        return events.currentItem.item.openMenu()
    }

    CalendarExpandedBinding {
        id: view
    }
    Loader {
        id: nothing
        anchors.fill: parent
        anchors.margins: view.emptyPadding
        active: !!view.noEvents
        sourceComponent: Item {
            function openMenu() {
                return menu.openAt(width / 2, 0)
            }

            ContextMenu {
                id: menu
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
        id: events

        // To the next event in that direction, past the headers.
        function step(direction) {
            for (let index = currentIndex + direction; index >= 0 && index < count;
                 index += direction) {
                positionViewAtIndex(index, ListView.Contain)
                if (itemAtIndex(index)?.entry.isHeader)
                    continue
                currentIndex = index
                return
            }
        }

        objectName: "events"
        anchors.fill: parent
        visible: !view.noEvents
        focus: true
        activeFocusOnTab: true
        currentIndex: -1
        Accessible.role: Accessible.List
        Accessible.name: qsTr("Events")
        Keys.onUpPressed: step(-1)
        Keys.onDownPressed: step(1)
        onActiveFocusChanged: if (activeFocus && currentIndex < 0) step(1)
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        topMargin: view.listPadding
        bottomMargin: view.listPadding
        spacing: view.itemSpacing
        model: view.items

        ScrollEdges { list: events }

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
                    isFocused: cell.ListView.isCurrentItem && events.activeFocus
                }
            }
        }
    }
}
