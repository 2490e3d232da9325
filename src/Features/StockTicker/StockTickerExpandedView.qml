import QtQuick
import Orvelle

// The stocks: a field for symbols over the list of quotes.
FocusScope {
    id: root

    function add() {
        stocks.addTicker(field.text)
        field.text = ""
        field.forceActiveFocus()
    }

    StockTickerExpandedBinding {
        id: stocks
    }
    ContextMenu {
        id: menu
        anchors.fill: parent
        enabled: list.count > 0
        menu: () => stocks.contextMenu()
    }
    Rectangle {
        id: entry
        x: stocks.rowSideInset
        width: parent.width - 2 * x - addButton.width - stocks.spacing
        height: field.implicitHeight + 2 * stocks.fieldVerticalPadding
        radius: 6
        color: stocks.rowBackground
        border.width: field.activeFocus ? 1 : 0
        border.color: Style.focusColor

        PanelField {
            id: field
            objectName: "symbolField"
            x: stocks.fieldHorizontalPadding
            width: parent.width - 2 * x
            anchors.verticalCenter: parent.verticalCenter
            focus: true
            content: stocks.fieldStyle
            prompt: stocks.fieldPlaceholder.text
            promptColor: stocks.fieldPlaceholder.color
            onAccepted: root.add()
            onPressed: stocks.takeKeyboard()
            Keys.onDownPressed: if (list.count > 0) list.forceActiveFocus()
        }
    }
    PanelButton {
        id: addButton
        objectName: "addButton"
        anchors.right: parent.right
        anchors.rightMargin: stocks.rowSideInset
        anchors.verticalCenter: entry.verticalCenter
        content: stocks.addButton
        name: qsTr("Add")
        enabled: stocks.canAdd(field.text)
        onClicked: root.add()
    }
    ListView {
        id: list
        objectName: "tickers"
        anchors.top: entry.bottom
        anchors.topMargin: stocks.spacing - stocks.rowInset
        anchors.bottom: parent.bottom
        width: parent.width
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        model: stocks.rows
        Accessible.role: Accessible.List
        Accessible.name: qsTr("Stocks")
        Keys.onUpPressed: {
            if (currentIndex > 0)
                decrementCurrentIndex()
            else
                field.forceActiveFocus()
        }
        Keys.onMenuPressed: menu.openBelow(currentItem)
        Keys.onPressed: event => {
            if (event.key === Qt.Key_F10 && event.modifiers & Qt.ShiftModifier)
                menu.openBelow(currentItem)
        }

        ScrollEdges { list: list }

        delegate: StockTickerRow {
            required property int index

            objectName: "row." + index
            view: stocks
            width: ListView.view.width
            focus: ListView.isCurrentItem
        }
        remove: Transition {
            NumberAnimation {
                property: "opacity"
                to: 0
                duration: stocks.removalDuration * 1000
                easing.type: Easing.InOutQuad
            }
        }
        removeDisplaced: Transition {
            NumberAnimation {
                property: "y"
                duration: stocks.removalDuration * 1000
                easing.type: Easing.InOutQuad
            }
        }
    }
    Loader {
        active: !!stocks.placeholder
        anchors.fill: list
        sourceComponent: FilePlaceholder {
            placeholder: stocks.placeholder
        }
    }
}
