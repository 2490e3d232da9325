import QtQuick
import Orvelle

// The stocks: a field for symbols over the list of quotes.
FocusScope {
    id: root

    Keys.onEscapePressed: event => event.accepted = list.stepBack()

    StockTickerExpandedBinding {
        id: stocks
    }
    ContextMenu {
        id: menu
        anchors.fill: parent
        enabled: list.count > 0
        menu: () => stocks.contextMenu()
    }
    EntryField {
        id: field
        width: parent.width
        focus: true
        horizontalPadding: stocks.fieldHorizontalPadding
        verticalPadding: stocks.fieldVerticalPadding
        content: stocks.fieldStyle
        prompt: stocks.fieldPlaceholder.text
        promptColor: stocks.fieldPlaceholder.color
        addButton: stocks.addButton
        canAdd: stocks.canAdd(text)
        onAdded: text => stocks.addTicker(text)
        onPressed: stocks.takeKeyboard()
        Keys.onDownPressed: list.enter()
    }
    PanelList {
        id: list
        objectName: "tickers"
        anchors.top: field.bottom
        anchors.topMargin: stocks.spacing - stocks.rowInset
        anchors.bottom: parent.bottom
        width: parent.width
        model: stocks.rows
        field: field.box
        menu: menu
        showsArrivals: true
        removalDuration: stocks.removalDuration
        Accessible.name: qsTr("Stocks")

        delegate: StockTickerRow {
            required property int index

            objectName: "row." + index
            view: stocks
            width: ListView.view.width
            focus: ListView.isCurrentItem
            list: ListView.view
        }
    }
    Loader {
        active: !!stocks.placeholder
        anchors.fill: list
        sourceComponent: FilePlaceholder {
            placeholder: stocks.placeholder
        }
    }
    Toast {
        standing: field.notice
    }
}
