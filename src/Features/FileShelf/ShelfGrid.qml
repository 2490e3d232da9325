import QtQuick
import Orvelle

// The shelf's files in columns. Arrow keys move the focus, and the keys beside do what the pointer
// does.
GridView {
    id: root

    property FileShelfBinding view
    property real columnsWidth
    property Item area: root // whose wheel scrolls it
    readonly property string currentId: currentItem ? currentItem.entry.id : ""

    clip: true
    interactive: false // a press drags a file, not the grid
    keyNavigationEnabled: true
    activeFocusOnTab: true
    model: view.cells
    // Each cell bears the gap behind it, so the last gap of a row lies outside. What is taken off
    // keeps a rounded sum from being wider than the row.
    width: columnsWidth + view.columnSpacing
    cellWidth: view.columnWidth(columnsWidth) + view.columnSpacing - 0.001
    cellHeight: 2 * view.cellPadding + view.iconSize + view.cellSpacing
                + Math.ceil(nameMetrics.height) + view.gridSpacing
    Accessible.role: Accessible.List
    Accessible.name: qsTr("Files")

    Keys.onReturnPressed: view.open(currentId)
    Keys.onEnterPressed: view.open(currentId)
    Keys.onSpacePressed: view.open(currentId)
    Keys.onDeletePressed: view.remove(currentId)
    Keys.onMenuPressed: openMenu()
    Keys.onPressed: event => {
        if (event.matches(StandardKey.Copy))
            view.copy(currentId)
        else if (event.key === Qt.Key_F10 && event.modifiers & Qt.ShiftModifier)
            openMenu()
        else if (!edges.jump(event))
            return
        event.accepted = true
    }
    function openMenu() {
        if (currentItem)
            currentItem.openMenu()
    }

    delegate: ShelfItemCell {
        required property int index

        view: root.view
        width: root.cellWidth - root.view.columnSpacing
        height: root.cellHeight - root.view.gridSpacing
        onTapped: {
            root.currentIndex = index
            root.forceActiveFocus()
            root.view.takeKeyboard()
        }
    }
    remove: Transition {
        NumberAnimation {
            property: "opacity"
            to: 0
            duration: root.view.removalDuration * 1000
            easing.type: Easing.InOutQuad
        }
    }
    displaced: Transition {
        NumberAnimation {
            properties: "x,y"
            duration: root.view.removalDuration * 1000
            easing.type: Easing.InOutQuad
        }
    }

    ScrollEdges {
        id: edges
        list: root
        area: root.area
        pitch: root.cellHeight
        edge: root.view.gridSpacing
        columns: Math.floor(root.width / root.cellWidth)
    }
    FontMetrics {
        id: nameMetrics
        font.pixelSize: root.view.nameSize
    }
}
