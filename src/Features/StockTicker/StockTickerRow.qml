import QtQuick
import Orvelle

// One symbol with its quote. A pull to the left removes it, and so does the delete key.
FocusScope {
    id: root

    required property var entry
    required property StockTickerExpandedBinding view
    property alias list: body.list
    readonly property alias ground: body

    implicitHeight: body.height + 2 * view.rowInset
    Accessible.role: Accessible.ListItem
    Accessible.name: entry.symbol.text
    Accessible.description: entry.figures ? entry.figures.price.text + " "
                                            + entry.figures.change.text
                            : entry.missing ? entry.missing.text : qsTr("Loading")
    Accessible.focusable: true
    Accessible.focused: activeFocus
    Keys.onDeletePressed: view.removeTicker(entry.id)
    Keys.onPressed: event => {
        if (event.key !== Qt.Key_Backspace)
            return
        event.accepted = true
        view.removeTicker(entry.id)
    }

    SwipeRow {
        id: body
        x: root.view.rowSideInset
        y: root.view.rowInset
        width: parent.width - 2 * x
        // As high as with a quote, so that no row moves when one comes.
        height: Math.max(texts.height, blankPrice.implicitHeight + root.view.rowLineSpacing
                         + blankChange.implicitHeight) + 2 * root.view.rowVerticalPadding
        focus: true
        background: root.view.rowBackground
        isHighlighted: root.activeFocus
        trailing: root.view.deleteAction
        onTrailingPerformed: root.view.removeTicker(root.entry.id)

        PanelText {
            id: blankPrice
            visible: false
            content: root.view.blankFigures.price
        }
        PanelText {
            id: blankChange
            visible: false
            content: root.view.blankFigures.change
        }
        Column {
            id: texts
            x: root.view.rowHorizontalPadding
            anchors.verticalCenter: parent.verticalCenter
            width: figures.x - root.view.rowSpacing - x
            spacing: root.view.rowLineSpacing

            PanelText {
                objectName: "symbol"
                content: root.entry.symbol
                width: parent.width
            }
            Loader {
                active: !!root.entry.name
                visible: active
                width: parent.width
                sourceComponent: PanelText {
                    content: root.entry.name
                }
            }
        }
        Loader {
            id: figures
            x: parent.width - width - root.view.rowHorizontalPadding
            anchors.verticalCenter: parent.verticalCenter
            sourceComponent: root.entry.figures ? quote : root.entry.missing ? missing : waiting
        }
    }
    Component {
        id: quote

        Column {
            spacing: root.view.rowLineSpacing

            PanelText {
                objectName: "price"
                content: root.entry.figures.price
                width: Math.min(implicitWidth, root.width / 2)
                anchors.right: parent.right
            }
            PanelText {
                objectName: "change"
                content: root.entry.figures.change
                width: Math.min(implicitWidth, root.width / 2)
                anchors.right: parent.right
            }
        }
    }
    Component {
        id: missing

        PanelText {
            objectName: "missing"
            content: root.entry.missing
        }
    }
    Component {
        id: waiting

        ProgressSpinner {
            objectName: "spinner"
            spinner: root.view.rowSpinner
        }
    }
}
