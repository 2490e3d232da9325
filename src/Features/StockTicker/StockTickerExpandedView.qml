import QtQuick
import Orvelle

// The stocks: a field for symbols over the list of quotes.
FocusScope {
    id: root

    function add() {
        view.addTicker(field.text)
        field.text = ""
        field.forceActiveFocus()
    }

    StockTickerExpandedBinding {
        id: view
    }
    ContextMenu {
        id: menu
        anchors.fill: parent
        enabled: list.count > 0
        menu: () => view.contextMenu()
    }
    Rectangle {
        id: entry
        x: view.rowSideInset
        width: parent.width - 2 * x - addButton.width - view.spacing
        height: field.implicitHeight + 2 * view.fieldVerticalPadding
        radius: 6
        color: view.rowBackground
        border.width: field.activeFocus ? 1 : 0
        border.color: Style.edgeColor

        PanelField {
            id: field
            objectName: "symbolField"
            x: view.fieldHorizontalPadding
            width: parent.width - 2 * x
            anchors.verticalCenter: parent.verticalCenter
            focus: true
            content: view.fieldStyle
            prompt: view.fieldPlaceholder.text
            promptColor: view.fieldPlaceholder.color
            onAccepted: root.add()
            Keys.onDownPressed: if (list.count > 0) list.forceActiveFocus()
        }
        TapHandler {
            onPressedChanged: {
                if (pressed)
                    view.takeKeyboard()
            }
        }
    }
    PanelButton {
        id: addButton
        objectName: "addButton"
        anchors.right: parent.right
        anchors.rightMargin: view.rowSideInset
        anchors.verticalCenter: entry.verticalCenter
        content: view.addButton
        name: qsTr("Add")
        enabled: view.canAdd(field.text)
        onClicked: root.add()
    }
    ListView {
        id: list
        objectName: "tickers"
        anchors.top: entry.bottom
        anchors.topMargin: view.spacing - view.rowInset
        anchors.bottom: parent.bottom
        width: parent.width
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        model: view.rows
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

        delegate: StockTickerRow {
            required property int index

            objectName: "row." + index
            view: view
            width: ListView.view.width
            focus: ListView.isCurrentItem
        }
        remove: Transition {
            NumberAnimation {
                property: "opacity"
                to: 0
                duration: view.removalDuration * 1000
                easing.type: Easing.InOutQuad
            }
        }
        removeDisplaced: Transition {
            NumberAnimation {
                property: "y"
                duration: view.removalDuration * 1000
                easing.type: Easing.InOutQuad
            }
        }
    }
    Loader {
        active: !!view.placeholder
        anchors.fill: list
        sourceComponent: FilePlaceholder {
            placeholder: view.placeholder
        }
    }
}
