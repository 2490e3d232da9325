import QtQuick
import Orvelle

// The panels of the tab bar, in their order.
FormPage {
    id: root

    PanelOrderSettingsBinding {
        id: view
    }
    FormTitle {
        text: view.title
        leftPadding: 12
        bottomPadding: 3
    }
    FormNote {
        width: parent.width
        text: view.explanation
        leftPadding: 12
        bottomPadding: 10
    }
    Rectangle {
        width: parent.width
        height: list.height + 6
        radius: FormStyle.groupRadius
        color: FormStyle.groupColor
        border.color: FormStyle.edgeColor

        ReorderList {
            id: list
            objectName: "panels"
            page: root
            y: 3
            width: parent.width
            rowHeight: 30
            name: view.title
            model: view.rows
            onMoved: (from, to) => view.move(from, to)
            delegate: ReorderRow {
                id: row
                owner: list
                name: entry.label.text

                Item {
                    width: view.symbolWidth
                    height: parent.height

                    PanelSymbol {
                        anchors.centerIn: parent
                        content: row.entry.symbol
                    }
                }
                PanelText {
                    x: view.symbolWidth + 8
                    anchors.verticalCenter: parent.verticalCenter
                    content: row.entry.label
                }
                PanelButton {
                    id: eye
                    objectName: "eye"
                    anchors.right: parent.right
                    anchors.verticalCenter: parent.verticalCenter
                    content: row.entry.eye
                    name: qsTr("%1: %2").arg(help).arg(row.name)
                    help: row.entry.help
                    onClicked: view.toggleVisibility(row.entry.id)
                }
            }
        }
    }
    Item {
        width: parent.width
        height: 44

        FormButton {
            objectName: "reset"
            anchors.centerIn: parent
            plain: true
            text: view.resetText
            textSize: view.resetTextSize
            textColor: FormStyle.secondaryColor
            onClicked: view.reset()
        }
    }
}
